#include "validation/categories/spec_database.h"

#include <gtest/gtest.h>

#include "tests/categories/config_of.h"
#include "validation/categories/koolthingz_spec.h"

namespace morvex {
namespace {

class CountingSpec : public KoolthingzSpec {
 public:
  CountingSpec(const KUID& specKuid, bool valid) : KoolthingzSpec(specKuid, {}, {}), valid_(valid) {}
  void Load() override { ++loads; }
  bool CheckValid() override { return valid_; }
  void OnValid() override { ++validCalls; }
  int loads = 0;
  int validCalls = 0;

 private:
  bool valid_;
};

CountingSpec* Add(KoolthingzSpecDatabase& registry, const KUID& kuid, bool valid = true) {
  auto spec = std::make_unique<CountingSpec>(kuid, valid);
  CountingSpec* raw = spec.get();
  registry.AddSpec(std::move(spec));
  return raw;
}

TEST(SpecDatabase, FindsSpecsInUseAndLoadsThemOnce) {
  KoolthingzSpecDatabase registry;
  const KUID kuid = KUID::Make(100, 200), bad = KUID::Make(1, 2);
  CountingSpec* first = Add(registry, kuid);
  CountingSpec* second = Add(registry, kuid);
  Add(registry, KUID());
  Add(registry, KUID::SecondReserved());
  EXPECT_EQ(registry.Find(kuid), first);
  // The filter judges the first spec only.
  EXPECT_EQ(registry.Find(kuid, [=](const KoolthingzSpec& spec) { return &spec == second; }), nullptr);
  EXPECT_EQ(registry.Find(KUID()), nullptr);
  EXPECT_EQ(registry.FindIncludingPending(KUID::SecondReserved()), nullptr);
  EXPECT_EQ(registry.FindAndLoad(kuid), first);
  registry.LoadSpec(*first);
  EXPECT_EQ(first->loads, 1);
  EXPECT_EQ(first->validCalls, 1);
  EXPECT_TRUE(first->isValid);
  EXPECT_EQ(registry.RemoveSpec(first).get(), first);
  EXPECT_EQ(registry.Find(kuid), second);

  CountingSpec* invalid = Add(registry, bad, false);
  registry.LoadSpec(*invalid);
  EXPECT_EQ(invalid->validCalls, 0);
  EXPECT_EQ(registry.Find(bad), nullptr);
  EXPECT_EQ(registry.FindIncludingPending(bad), invalid);
  EXPECT_NE(registry.RemoveSpec(invalid), nullptr);
  EXPECT_EQ(registry.FindIncludingPending(bad), nullptr);
}

class SceneryFactory : public KTSpecFactory {
 public:
  explicit SceneryFactory(bool& gone) : KTSpecFactory(Nox::PString("Scenery")), gone_(gone) {}
  ~SceneryFactory() override { gone_ = true; }
  std::unique_ptr<KoolthingzSpec> CreateSpec(const SpecPlace&, uint32_t flags,
                                             const TagContainer& config) override {
    if (flags != 0) return nullptr;
    return std::make_unique<CountingSpec>(config.GetKUID(Nox::PString("kuid")), true);
  }

 private:
  bool& gone_;
};

TEST(SpecDatabase, AsksTheFactoryOfTheKind) {
  bool gone = false, goneEarly = false;
  {
    KoolthingzSpecDatabase registry;
    const TagContainer config = ConfigOf({{"kind", "scenery"}, {"kuid", "<kuid:100:200>"}});
    EXPECT_EQ(registry.CreateSpec({}, 0, config), nullptr);
    registry.AddFactory(std::make_unique<SceneryFactory>(gone));
    KoolthingzSpec* spec = registry.CreateSpec({}, 0, config);
    ASSERT_NE(spec, nullptr);
    EXPECT_EQ(registry.Find(KUID::Make(100, 200)), spec);
    EXPECT_EQ(registry.CreateSpec({}, 1, config), nullptr);

    auto* early = new SceneryFactory(goneEarly);
    registry.AddFactory(std::unique_ptr<KTSpecFactory>(early));
    delete early;  // takes itself out
    EXPECT_TRUE(goneEarly);
    EXPECT_EQ(KoolthingzSpecDatabase::Get(), &registry);
  }
  EXPECT_TRUE(gone);
  EXPECT_EQ(KoolthingzSpecDatabase::Get(), nullptr);
}

}  // namespace
}  // namespace morvex
