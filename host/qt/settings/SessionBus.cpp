#include "host/qt/settings/SessionBus.h"

#include <QtCore/QByteArray>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QtEndian>
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <errno.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace bkuk::host {

namespace {

constexpr int patience = 50;  // milliseconds

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

QByteArray sessionAddress() {
  const QByteArray named = qgetenv(addressVariable);
  if (!named.isEmpty()) return named;
  const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
  const QByteArray path = directory + "/bus";
  return !directory.isEmpty() && access(path.constData(), F_OK) == 0 ? "unix:path=" + path : QByteArray();
}

// The value of a key of one address, as in "unix:path=/run/bus,guid=..."; empty when it has none.
QByteArray valueOf(const QByteArray& address, const QByteArray& key) {
  for (const QByteArray& pair : address.mid(address.indexOf(':') + 1).split(',')) {
    if (pair.startsWith(key + '=')) return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
  }
  return {};
}

// The socket's name as the system has it, where abstract ones begin with a zero. Empty for other transports.
QByteArray socketName(const QByteArray& address) {
  if (!address.startsWith("unix:")) return {};
  const QByteArray abstract = valueOf(address, "abstract");
  if (!abstract.isEmpty()) return QByteArray(1, '\0') + abstract;
  if (valueOf(address, "runtime") == "yes") return qgetenv("XDG_RUNTIME_DIR") + "/bus";
  return valueOf(address, "path");
}

// One connection that gives up in time.
class Connection {
 public:
  explicit Connection(const QByteArray& name)
      : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)), deadline_(patience) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto length = std::min<std::size_t>(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
    std::memcpy(address.sun_path, name.constData(), length);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    const int result = connect(socket_, reinterpret_cast<const sockaddr*>(&address), size);
    isOpen_ = result == 0 || errno == EAGAIN;  // its queue is full: it is there
  }
  ~Connection() { close(socket_); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  [[nodiscard]] bool isOpen() const { return isOpen_; }
  /// What cannot be said is not answered either.
  void say(const QByteArray& bytes) {
    static_cast<void>(send(socket_, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL));
  }
  /// The answer, empty when none comes in time.
  QByteArray hear() {
    pollfd waiting{socket_, POLLIN, 0};
    if (poll(&waiting, 1, static_cast<int>(deadline_.remainingTime())) <= 0) return {};
    QByteArray answer(256, '\0');
    const auto length = recv(socket_, answer.data(), static_cast<std::size_t>(answer.size()), 0);
    return answer.left(std::max<qsizetype>(length, 0));
  }

 private:
  int socket_;
  bool isOpen_ = false;
  QDeadlineTimer deadline_;
};

void appendNumber(QByteArray& message, quint32 number) {
  const quint32 little = qToLittleEndian(number);
  message.append(reinterpret_cast<const char*>(&little), sizeof little);
}

// A field of a message's header, of a code and a text of some type, aligned as the protocol has it.
void appendField(QByteArray& fields, char code, char type, const QByteArray& text) {
  fields.append((8 - fields.size() % 8) % 8, '\0');
  fields.append(code).append('\1').append(type).append('\0');
  appendNumber(fields, static_cast<quint32>(text.size()));
  fields.append(text).append('\0');
}

// The first message of every connection, which the bus answers with a name.
QByteArray hello() {
  QByteArray fields;
  appendField(fields, 1, 'o', "/org/freedesktop/DBus");
  appendField(fields, 2, 's', "org.freedesktop.DBus");
  appendField(fields, 3, 's', "Hello");
  appendField(fields, 6, 's', "org.freedesktop.DBus");
  QByteArray message("l\1\0\1", 4);
  appendNumber(message, 0);  // no body
  appendNumber(message, 1);  // the message's number
  appendNumber(message, static_cast<quint32>(fields.size()));
  message.append(fields);
  message.append((8 - message.size() % 8) % 8, '\0');
  return message;
}

enum class Bus { absent, silent, talking };

// One that refuses us talks too: joining it fails at once.
Bus tryOut(const QByteArray& name) {
  Connection bus(name);
  if (!bus.isOpen()) return Bus::absent;
  const QByteArray user = QByteArray::number(getuid()).toHex();
  bus.say(QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
  const QByteArray reply = bus.hear();
  if (reply.isEmpty()) return Bus::silent;
  if (!reply.startsWith("OK ")) return Bus::talking;
  bus.say("BEGIN\r\n" + hello());
  return bus.hear().isEmpty() ? Bus::silent : Bus::talking;
}

// Addresses of other transports cannot be tried out and are taken as they are.
Bus tryOutSession() {
  auto result = Bus::absent;
  for (const QByteArray& address : sessionAddress().split(';')) {
    if (address.isEmpty()) continue;
    const QByteArray name = socketName(address);
    result = std::max(result, name.isEmpty() ? Bus::talking : tryOut(name));
  }
  if (result == Bus::silent) qputenv(addressVariable, "disabled:");
  return result;
}

}  // namespace

bool hasSessionBus() {
  static const bool isThere = tryOutSession() == Bus::talking;
  return isThere;
}

}  // namespace bkuk::host
