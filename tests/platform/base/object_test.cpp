#include <plix/platform/base/Class.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/class_roster.h>
#include <plix/platform/base/living_objects.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class Animal : public NSObject {
    PLIX_CLASS(Animal, NSObject);

public:
    bool init() { return true; }
    bool init(int legs)
    {
        m_legs = legs;
        return legs >= 0;
    }
    int legs() const { return m_legs; }
    void setFriend(Ref<Animal> const& other) { m_friend = other; }
    Animal* friendlyAnimal() const { return m_friend.get(); }
    void growLeg(NSObject*) { ++m_legs; }
    void setLegs(int legs) { m_legs = legs; }
    void setName(std::string_view name) { m_name = name; }
    std::string const& name() const { return m_name; }

protected:
    void copyStateTo(NSObject& fresh) const override
    {
        Base::copyStateTo(fresh);
        static_cast<Animal&>(fresh).m_legs = m_legs;
    }

private:
    int m_legs { 4 };
    std::string m_name;
    Weak<Animal> m_friend;
};

PLIX_DESCRIBE(Animal)
{
    description.action("growLeg:", &Animal::growLeg)
        .outlet("friend", &Animal::setFriend)
        .property("legs", &Animal::setLegs)
        .property("name", &Animal::setName)
        .property("friend", &Animal::setFriend)
        .property("even", [](Animal& animal, ObjectValue const& value) {
            if (value.intValue() % 2 == 0)
                animal.setLegs(value.intValue());
            return value.intValue() % 2 == 0;
        });
}

class Bird final : public Animal {
    PLIX_CLASS(Bird, Animal);

public:
    using Animal::init;
    bool isSinging { false };

private:
    void copyStateTo(NSObject& fresh) const override
    {
        Base::copyStateTo(fresh);
        static_cast<Bird&>(fresh).isSinging = isSinging;
    }
};

PLIX_DESCRIBE(Bird)
{
}

struct KeeperHooks {
    Hook<int(Animal&, int)> feed;
    Hook<void(Animal&)> wash;
    Hook<bool(Animal&)> mayLeave;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(feed);
        PLIX_FILL_HOOK(wash);
        PLIX_FILL_HOOK(mayLeave);
    }
};

class Keeper : public NSObject {
public:
    int feed(Animal& animal, int portions) { return animal.legs() * portions; }
    void wash(Animal&) { ++washed; }
    int washed { 0 };
};

TEST(NSObject, IsCountedWhileItLives)
{
    auto const before = livingObjects();
    auto const one = make<Animal>();
    auto other = make<Animal>();
    EXPECT_EQ(livingObjects(), before + 2);
    other = one;
    EXPECT_EQ(livingObjects(), before + 1);
    EXPECT_FALSE(make<Animal>(-1));
    EXPECT_EQ(livingObjects(), before + 1);
}

TEST(NSObject, MakeRunsInitAndGivesNullWhereItAnswersFalse)
{
    EXPECT_EQ(make<Animal>(2)->legs(), 2);
    EXPECT_EQ(make<Animal>(-1), nullptr);
    EXPECT_EQ(make<Animal>()->legs(), 4);
}

TEST(NSObject, ReferencesAreCountedAndTheLastOneDestroys)
{
    auto animal = make<Animal>();
    Weak<Animal> const weak(animal);
    auto second = animal;
    EXPECT_EQ(animal->retainCount(), 2U);
    animal = nullptr;
    EXPECT_EQ(weak.get(), second.get());
    second = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_TRUE(weak.wasSet());
}

TEST(NSObject, SerialNumbersAreNeverReused)
{
    auto const first = make<Animal>()->serialNumber();
    auto const second = make<Animal>()->serialNumber();
    EXPECT_NE(first, second);
}

TEST(NSObject, CopyMakesTheReceiversOwnClassWithItsState)
{
    auto const bird = make<Bird>(2);
    bird->isSinging = true;
    Animal const& seenAsAnimal = *bird;
    auto const copied = as<Bird>(seenAsAnimal.copy());
    ASSERT_TRUE(copied);
    EXPECT_EQ(copied->legs(), 2);
    EXPECT_TRUE(copied->isSinging);
    EXPECT_NE(copied.get(), bird.get());
}

TEST(NSObject, KeepsItsCompanionsAliveAsLongAsItLives)
{
    auto owner = make<Animal>();
    auto companion = make<Animal>();
    Weak<Animal> const weak(companion);
    owner->keepAlive(companion);
    owner->keepAlive(nullptr);
    owner->keepAlive(owner);
    companion = nullptr;
    EXPECT_TRUE(weak);
    EXPECT_EQ(owner->retainCount(), 1U);
    owner = nullptr;
    EXPECT_FALSE(weak);
}

TEST(NSObject, CompanionsMayHaveCompanionsThemselves)
{
    auto first = make<Animal>();
    auto second = make<Animal>();
    auto third = make<Animal>();
    Weak<Animal> const weak(third);
    second->keepAlive(third);
    first->keepAlive(second);
    second = nullptr;
    third = nullptr;
    EXPECT_TRUE(weak);
    first = nullptr;
    EXPECT_FALSE(weak);
}

TEST(NSObject, ACopyKeepsNoCompanions)
{
    auto owner = make<Animal>();
    owner->keepAlive(make<Bird>());
    auto const copied = owner->copy();
    owner = nullptr;
    EXPECT_EQ(copied->retainCount(), 1U);
}

class Late : public NSObject {
    PLIX_CLASS(Late, NSObject);
};

PLIX_DESCRIBE(Late)
{
}

TEST(Class, RostersAreCalledWhenANameIsNotKnown)
{
    static int s_calls = 0;
    EXPECT_EQ(NSClassFromString("Late"), nullptr);
    EXPECT_TRUE(addClassRoster([] {
        ++s_calls;
        Late::staticClass();
    }));
    EXPECT_EQ(NSClassFromString("Bird"), &Bird::staticClass());
    EXPECT_EQ(s_calls, 0);
    EXPECT_EQ(NSClassFromString("Late"), &Late::staticClass());
    EXPECT_EQ(NSClassFromString("Later"), nullptr);
    EXPECT_EQ(s_calls, 1);
}

TEST(Class, PropertiesTakeValuesOfTheirKindAndAreInherited)
{
    auto const bird = make<Bird>(2);
    auto const& described = Bird::staticClass();
    auto const set = [&](char const* name, ObjectValue const& value) { return (*described.property(name))(*bird, value); };
    EXPECT_TRUE(set("legs", 7));
    EXPECT_EQ(bird->legs(), 7);
    EXPECT_FALSE(set("legs", "seven"));
    EXPECT_TRUE(set("name", "Tweety"));
    EXPECT_EQ(bird->name(), "Tweety");
    EXPECT_FALSE(set("name", 3));
    auto const other = make<Animal>();
    EXPECT_TRUE(set("friend", other));
    EXPECT_EQ(bird->friendlyAnimal(), other.get());
    EXPECT_FALSE(set("friend", make<Keeper>()));
    EXPECT_TRUE(set("friend", nullptr));
    EXPECT_EQ(bird->friendlyAnimal(), nullptr);
    EXPECT_FALSE(set("even", 3));
    EXPECT_TRUE(set("even", 4));
    EXPECT_EQ(bird->legs(), 4);
    EXPECT_EQ(described.property("wings"), nullptr);
}

TEST(Class, IsFoundByNameAndKnowsItsFamily)
{
    ASSERT_EQ(NSClassFromString("Bird"), &Bird::staticClass());
    EXPECT_EQ(NSClassFromString("Fish"), nullptr);
    EXPECT_TRUE(Bird::staticClass().isSubclassOfClass(Animal::staticClass()));
    EXPECT_FALSE(Animal::staticClass().isSubclassOfClass(Bird::staticClass()));
    auto const bird = make<Bird>();
    EXPECT_TRUE(bird->isKindOfClass(Animal::staticClass()));
    EXPECT_FALSE(bird->isMemberOfClass(Animal::staticClass()));
    EXPECT_TRUE(bird->isMemberOfClass(Bird::staticClass()));
    EXPECT_EQ(&bird->isa(), &Bird::staticClass());
}

TEST(Class, ActionsAndOutletsAreInherited)
{
    auto const bird = make<Bird>(2);
    auto const other = make<Animal>();
    EXPECT_TRUE(bird->perform(Selector("growLeg:"), nullptr));
    EXPECT_EQ(bird->legs(), 3);
    EXPECT_FALSE(bird->perform(Selector("fly:"), nullptr));
    auto const* outlet = Bird::staticClass().outlet("friend");
    ASSERT_TRUE(outlet);
    EXPECT_TRUE((*outlet)(*bird, other.get()));
    EXPECT_EQ(bird->friendlyAnimal(), other.get());
    EXPECT_FALSE((*outlet)(*bird, make<Keeper>().get()));
}

TEST(Selector, EqualNamesAreOneSelector)
{
    EXPECT_EQ(Selector("growLeg:"), Selector(std::string("growLeg") + ":"));
    EXPECT_NE(Selector("growLeg:"), Selector("growLeg"));
    EXPECT_FALSE(Selector());
    EXPECT_EQ(Selector("wash").name(), "wash");
}

TEST(Hook, IsSetWhileItsHostLives)
{
    auto keeper = make<Keeper>();
    auto const animal = make<Animal>(4);
    auto const source = HookSource::pack<KeeperHooks>(keeper);
    auto const hooks = source.hooks<KeeperHooks>();
    ASSERT_TRUE(hooks.feed);
    EXPECT_EQ(hooks.feed(*animal, 3), 12);
    hooks.wash(*animal);
    EXPECT_EQ(keeper->washed, 1);
    EXPECT_FALSE(hooks.mayLeave);
    keeper = nullptr;
    EXPECT_FALSE(hooks.feed);
    EXPECT_EQ(hooks.feed(*animal, 3), 0);
    EXPECT_EQ(source.object(), nullptr);
}

struct TrainerHooks {
    Hook<int(int)> train;

    template <typename Host> void fillFrom(Host& host) { PLIX_FILL_HOOK(train); }
};

class Trainer : public NSObject {
    PLIX_CLASS(Trainer, NSObject);

public:
    virtual int train(int hours) { return hours; }
    void wash(Animal&) { ++washed; }
    int washed { 0 };
};

PLIX_DESCRIBE(Trainer)
{
    description.fillsHooks<TrainerHooks>();
}

/// Fills a set beyond that of its superclass.
class TrainingKeeper : public Trainer {
    PLIX_CLASS(TrainingKeeper, Trainer);

public:
    int train(int hours) override { return hours * 2; }
};

PLIX_DESCRIBE(TrainingKeeper)
{
    description.fillsHooks<KeeperHooks>();
}

TEST(Hook, AClassFillsTheSetsOfItsSuperclassesToo)
{
    auto const keeper = make<TrainingKeeper>();
    auto const animal = make<Animal>(4);
    auto const source = keeper->isa().hookSource(*keeper);
    EXPECT_EQ(source.object(), keeper.get());
    EXPECT_EQ(source.hooks<TrainerHooks>().train(3), 6);
    source.hooks<KeeperHooks>().wash(*animal);
    EXPECT_EQ(keeper->washed, 1);
}

TEST(Hook, TakesALambda)
{
    Hook<int(int)> hook;
    EXPECT_FALSE(hook);
    hook = [](int value) { return value + 1; };
    ASSERT_TRUE(hook);
    EXPECT_EQ(hook(1), 2);
}

TEST(Global, RetainsWhatIsAssigned)
{
    static constinit Global<Animal> s_global;
    auto animal = make<Animal>();
    Weak<Animal> const weak(animal);
    s_global = animal;
    animal = nullptr;
    EXPECT_EQ(s_global.get(), weak.get());
    s_global = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(ObjectValue, KeepsKindsApart)
{
    EXPECT_TRUE(ObjectValue().isNil());
    EXPECT_TRUE(ObjectValue(true).isBool());
    EXPECT_TRUE(ObjectValue("text").isString());
    EXPECT_TRUE(ObjectValue(static_cast<char const*>(nullptr)).isNil());
    EXPECT_TRUE(ObjectValue(Ref<Animal>()).isNil());
    EXPECT_TRUE(ObjectValue(ObjectValue::Array { 1, "two" }).isArray());
    auto const animal = make<Animal>();
    EXPECT_EQ(ObjectValue(animal).as<Animal>(), animal);
    EXPECT_EQ(ObjectValue(animal).as<Bird>(), nullptr);
}

TEST(ObjectValue, ReadsNumbersFromText)
{
    EXPECT_EQ(ObjectValue("  -12abc").intValue(), -12);
    EXPECT_EQ(ObjectValue("99999999999").intValue(), 2147483647);
    EXPECT_EQ(ObjectValue("1.5e2x").doubleValue(), 150);
    EXPECT_EQ(ObjectValue("inf").doubleValue(), 0);
    EXPECT_EQ(ObjectValue("1e-999").doubleValue(), 0);
    EXPECT_GT(ObjectValue("1e999").doubleValue(), 1e308);
    EXPECT_TRUE(ObjectValue("YES").boolValue());
    EXPECT_EQ(ObjectValue(0.1).description(), "0.1");
    EXPECT_EQ(ObjectValue(1e300).intValue(), 2147483647);
}

TEST(ObjectValue, ComparesByValueAndObjectsByEquality)
{
    EXPECT_EQ(ObjectValue(1), ObjectValue(1.0));
    EXPECT_NE(ObjectValue(1), ObjectValue("1"));
    EXPECT_EQ(ObjectValue(ObjectValue::Dictionary { { "a", 1 } }), ObjectValue(ObjectValue::Dictionary { { "a", 1 } }));
    EXPECT_NE(ObjectValue(make<Animal>()), ObjectValue(make<Animal>()));
}

}
}
