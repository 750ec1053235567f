#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "platform/foundation/ArchiveFormat.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"

namespace bkuk {
namespace {

using Bytes = std::vector<std::byte>;

struct Person : NSObject, NSCoding {
  std::string name;
  Ref<Person> friend_;
  std::vector<Ref<NSObject>> children;

  explicit Person(std::string_view text) : name(text) {}
  explicit Person(NSCoder& coder) {
    coder.willDecode(*this);
    name = coder.decodeString("name").value_or("");
    friend_ = coder.decodeObject<Person>("friend");
    children = coder.decodeArray("children").value_or(std::vector<Ref<NSObject>>());
  }
  void encode(NSCoder& coder) const override {
    coder.encodeString(name, "name");
    coder.encode(friend_, "friend");
    coder.encodeArray(children, "children");
  }
};

const NSCodingRegistration person("Person", [](NSCoder& coder) -> Ref<NSObject> {
  const auto made = make<Person>(coder);
  return made->name.empty() ? nullptr : made;
});

struct Numbers : NSObject, NSCoding {
  bool flag = true;
  std::int64_t whole = std::numeric_limits<std::int64_t>::min();
  double real = -0.0;
  Bytes data{std::byte{0}, std::byte{255}};
  void encode(NSCoder& coder) const override {
    coder.encodeInteger(1, "flag");
    coder.encodeBool(flag, "flag");
    coder.encodeInteger(whole, "whole");
    coder.encodeDouble(real, "real");
    coder.encodeData(data, "data");
  }
};

const NSCodingRegistration numbers("Numbers", [](NSCoder& coder) {
  auto made = make<Numbers>();
  made->flag = coder.decodeBool("flag").value();
  made->whole = coder.decodeInteger("whole").value();
  made->real = coder.decodeDouble("real").value();
  made->data = coder.decodeData("data").value();
  EXPECT_EQ(coder.decodeInteger("flag"), std::nullopt) << "the second value under the key replaced the first";
  EXPECT_FALSE(coder.containsValue("nothing"));
  EXPECT_FALSE(coder.decodeObject("nothing"));
  return made;
});

Ref<Person> roundTrip(const NSObject& root) {
  return as<Person>(NSKeyedUnarchiver::unarchive(NSKeyedArchiver::archivedData(root)));
}

TEST(NSKeyedArchiver, ValuesComeBackAsTheyWere) {
  const auto original = make<Numbers>();
  const auto data = NSKeyedArchiver::archivedData(*original);
  const auto copy = as<Numbers>(NSKeyedUnarchiver::unarchive(data));
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->whole, original->whole);
  EXPECT_TRUE(copy->flag && std::signbit(copy->real));
  EXPECT_EQ(copy->data, original->data);
}

TEST(NSKeyedArchiver, AnObjectMetTwiceComesBackAsOne) {
  const auto parent = make<Person>("parent");
  const auto child = make<Person>("child");
  parent->children = {child, nullptr, child};
  parent->friend_ = child;
  const auto copy = roundTrip(*parent);
  ASSERT_EQ(copy->children.size(), 3u);
  EXPECT_EQ(copy->children[0], copy->children[2]);
  EXPECT_FALSE(copy->children[1]);
  EXPECT_EQ(copy->friend_, copy->children[0]);
}

TEST(NSKeyedArchiver, ObjectsMayReferToThemselvesInCircles) {
  const auto anna = make<Person>("anna"), bert = make<Person>("bert");
  anna->friend_ = bert, bert->friend_ = anna;
  const auto copy = roundTrip(*anna);
  EXPECT_EQ(copy->friend_->name, "bert");
  EXPECT_EQ(copy->friend_->friend_, copy);
  copy->friend_ = nullptr, anna->friend_ = nullptr;
}

TEST(NSKeyedArchiver, AnObjectThatItsClassRefusesIsAbsent) {
  const auto parent = make<Person>("parent");
  parent->friend_ = make<Person>("");
  parent->children = {make<Person>("child"), make<Person>("")};
  const auto copy = roundTrip(*parent);
  EXPECT_FALSE(copy->friend_);
  EXPECT_TRUE(copy->children.empty()) << "an array with a failed element is absent";
  EXPECT_FALSE(roundTrip(*make<Person>("")));
}

Ref<Person> chain(int length) {
  Ref<Person> head;
  for (int i = 0; i < length; ++i) {
    auto link = make<Person>("link");
    link->friend_ = std::exchange(head, nullptr);
    head = std::move(link);
  }
  return head;
}

TEST(NSKeyedArchiver, TheDepthOfDecodingIsLimited) {
  EXPECT_TRUE(roundTrip(*chain(NSKeyedUnarchiver::maxDepth)));
  EXPECT_FALSE(roundTrip(*chain(NSKeyedUnarchiver::maxDepth + 1)));
  EXPECT_FALSE(roundTrip(*chain(100'000)));
}

TEST(NSKeyedUnarchiver, DamagedArchivesGiveNoObjectOrAWholeOne) {
  const auto parent = make<Person>("parent");
  parent->children = {make<Person>("child")};
  const auto good = NSKeyedArchiver::archivedData(*parent);
  for (std::size_t length = 0; length < good.size(); ++length)
    EXPECT_FALSE(NSKeyedUnarchiver::unarchive(std::span(good).first(length))) << length;
  for (std::size_t i = 0; i < good.size(); ++i) {
    auto damaged = good;
    damaged[i] ^= std::byte{0xFF};
    const auto object = as<Person>(NSKeyedUnarchiver::unarchive(damaged));
    EXPECT_TRUE(!object || !object->name.empty()) << i;
  }
  auto longer = good;
  longer.push_back({});
  EXPECT_FALSE(NSKeyedUnarchiver::unarchive(longer));
  auto newer = good;
  newer[archive::magic.size()] = std::byte{archive::version + 1};
  EXPECT_FALSE(NSKeyedUnarchiver::unarchive(newer));
}

TEST(NSKeyedUnarchiver, AnUnknownClassGivesNoObject) {
  struct Stranger : NSObject, NSCoding {
    void encode(NSCoder&) const override {}
  };
  EXPECT_FALSE(NSKeyedUnarchiver::unarchive(NSKeyedArchiver::archivedData(*make<Stranger>())));
}

TEST(NSKeyedArchiverDeathTest, OnlyCodingObjectsAreArchived) {
  struct Plain : NSObject {};
  EXPECT_DEATH((void)NSKeyedArchiver::archivedData(*make<Plain>()), "Plain cannot be archived");
}

}  // namespace
}  // namespace bkuk
