#include <algorithm>
#include <gtest/gtest.h>

#include "platform/foundation/NSHashTable.h"
#include "platform/foundation/NSMapTable.h"

namespace bkuk {
namespace {

/// Equal by its first letter, so that equal keys may have unequal contents.
struct Name : NSObject {
  explicit Name(std::string_view name) : text(name) {}
  bool isEqual(const NSObject* other) const override {
    const auto* name = dynamic_cast<const Name*>(other);
    return name && name->text.front() == text.front();
  }
  std::size_t hash() const override { return static_cast<std::size_t>(text.front()); }
  std::string text;
};

std::vector<std::string> texts(const std::vector<Ref<NSObject>>& objects) {
  std::vector<std::string> names;
  for (const auto& object : objects) names.push_back(as<Name>(object)->text);
  return names;
}

TEST(NSHashTable, KeepsOrderOfFirstAdditionAndIgnoresEqualObjects) {
  const auto table = NSHashTable::weakObjectsHashTable();
  const auto anna = make<Name>("anna"), bert = make<Name>("bert"), alma = make<Name>("alma");
  for (const auto& name : {bert, anna, alma, bert}) table->add(name.get());
  EXPECT_EQ(texts(table->allObjects()), (std::vector<std::string>{"bert", "anna"}));
  table->remove(alma.get());
  EXPECT_EQ(texts(table->allObjects()), std::vector<std::string>{"bert"});
  table->remove(alma.get());
  table->add(nullptr);
  EXPECT_EQ(table->count(), 1u);
}

TEST(NSHashTable, DeadObjectsDropOutAndSnapshotsKeepTheirsAlive) {
  const auto table = NSHashTable::weakObjectsHashTable();
  auto anna = make<Name>("anna");
  table->add(anna.get());
  auto snapshot = table->allObjects();
  anna = nullptr;
  EXPECT_EQ(table->count(), 1u);
  snapshot.clear();
  EXPECT_EQ(table->count(), 0u);
  const auto alma = make<Name>("alma");
  table->add(alma.get());
  EXPECT_TRUE(table->contains(alma.get()));
}

TEST(NSMapTable, AnEqualKeyKeepsItsObjectAndTakesTheNewValue) {
  const auto table = make<NSMapTable>();
  auto anna = make<Name>("anna");
  const Weak<Name> firstKey(anna);
  table->set(make<Name>("one").get(), std::exchange(anna, nullptr).get());
  const auto alma = make<Name>("alma");
  table->set(make<Name>("two").get(), alma.get());
  EXPECT_EQ(table->count(), 1u);
  EXPECT_TRUE(firstKey.isAlive());
  EXPECT_EQ(as<Name>(table->object(alma.get()))->text, "two");
  table->removeObject(alma.get());
  EXPECT_FALSE(firstKey.isAlive());
  EXPECT_FALSE(table->object(alma.get()));
}

TEST(NSMapTable, WeakValuesDropOutTogetherWithTheirKeys) {
  const auto table = NSMapTable::strongToWeakObjects();
  const auto kept = make<Name>("kept");
  std::vector<Weak<Name>> keys;
  for (int i = 0; i < 100; ++i) {
    const auto key = make<Name>(std::string(1, static_cast<char>(' ' + i)));
    keys.emplace_back(key);
    table->set(i == 0 ? kept.get() : make<Name>("dead").get(), key.get());
  }
  EXPECT_LT(std::ranges::count_if(keys, &Weak<Name>::isAlive), 50) << "a table that only grows is purged too";
  EXPECT_EQ(table->count(), 1u);
  EXPECT_EQ(table->object(make<Name>(" ").get()), kept);
  EXPECT_FALSE(table->object(make<Name>("1").get()));
}

TEST(NSMapTable, AValueMayCallTheTableWhenItGoes) {
  struct Caller : NSObject {
    NSMapTable& table;
    explicit Caller(NSMapTable& map) : table(map) {}
    ~Caller() override { table.set(this->table.object(nullptr).get(), nullptr), table.removeAllObjects(); }
  };
  const auto table = make<NSMapTable>();
  const auto key = make<Name>("key");
  table->set(make<Caller>(*table).get(), key.get());
  table->set(key.get(), key.get());
  EXPECT_EQ(table->count(), 0u);
}

}  // namespace
}  // namespace bkuk
