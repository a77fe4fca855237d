#include <plix/platform/foundation/NSNotificationCenter.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> s_log;

class Listener : public NSObject {
public:
    bool init(std::string name)
    {
        m_name = std::move(name);
        return true;
    }
    ~Listener() override { NSNotificationCenter::defaultCenter().removeObserver(*this); }

    void hear(NSNotification const& notification) { s_log.push_back(m_name + ":" + notification.name); }
    void hearNothing() { s_log.push_back(m_name); }

private:
    std::string m_name;
};

class NSNotificationCenterTest : public testing::Test {
protected:
    void SetUp() override { s_log.clear(); }
    Ref<NSNotificationCenter> center { make<NSNotificationCenter>() };
    Ref<Listener> a { make<Listener>("a") };
    Ref<Listener> b { make<Listener>("b") };
    Ref<Listener> object { make<Listener>("object") };
};

TEST_F(NSNotificationCenterTest, TellsObserversInTheOrderOfRegistration)
{
    center->addObserver(*b, &Listener::hear, "N");
    center->addObserver(*a, &Listener::hear);
    center->addObserver(*a, &Listener::hearNothing, "N");
    center->addObserver(*b, &Listener::hear, "M");
    center->postNotificationName("N");
    EXPECT_THAT(s_log, ElementsAre("b:N", "a:N", "a"));
}

TEST_F(NSNotificationCenterTest, HandsOverObjectAndUserInfo)
{
    NSNotification heard;
    auto const token = center->addObserver([&](NSNotification const& notification) { heard = notification; });
    center->postNotificationName("N", object, { { "key", 7 } });
    EXPECT_EQ(heard.name, "N");
    EXPECT_EQ(heard.object, object);
    EXPECT_EQ(heard.userInfo.at("key"), ObjectValue(7));
}

TEST_F(NSNotificationCenterTest, UserInfoIsEmptyWithoutOne)
{
    auto entries = std::size_t { 9 };
    auto const token = center->addObserver([&](NSNotification const& n) { entries = n.userInfo.size(); });
    center->postNotificationName("N");
    EXPECT_EQ(entries, 0U);
}

TEST_F(NSNotificationCenterTest, FiltersByObject)
{
    center->addObserver(*a, &Listener::hear, "N", object.get());
    center->addObserver(*b, &Listener::hear, std::nullopt, a.get());
    center->postNotificationName("N");
    center->postNotificationName("N", b);
    EXPECT_THAT(s_log, IsEmpty());
    center->postNotificationName("N", object);
    center->postNotificationName("M", a);
    EXPECT_THAT(s_log, ElementsAre("a:N", "b:M"));
}

TEST_F(NSNotificationCenterTest, AFilterGoesWithItsObjectAndNeverMatchesAnother)
{
    center->addObserver(*a, &Listener::hear, "N", object.get());
    object = nullptr;
    for (int i = 0; i < 50; ++i)
        center->postNotificationName("N", make<Listener>("new"));
    center->postNotificationName("N");
    EXPECT_THAT(s_log, IsEmpty());
}

TEST_F(NSNotificationCenterTest, ADeadObserverIsNotTold)
{
    center->addObserver(*a, &Listener::hear, "N");
    a = nullptr;
    center->postNotificationName("N");
    EXPECT_THAT(s_log, IsEmpty());
}

TEST_F(NSNotificationCenterTest, OneAddedWhilePostingIsToldTheNextTime)
{
    auto const token = center->addObserver([&](NSNotification const&) { center->addObserver(*a, &Listener::hearNothing, "N"); });
    center->postNotificationName("N");
    EXPECT_THAT(s_log, IsEmpty());
    center->postNotificationName("N");
    EXPECT_THAT(s_log, ElementsAre("a"));
}

TEST_F(NSNotificationCenterTest, OneRemovedOrDestroyedWhilePostingIsNotTold)
{
    auto const token = center->addObserver([&](NSNotification const&) {
        center->removeObserver(*a);
        b = nullptr;
    });
    center->addObserver(*a, &Listener::hear, "N");
    center->addObserver(*b, &Listener::hear, "N");
    center->postNotificationName("N");
    EXPECT_THAT(s_log, IsEmpty());
}

TEST_F(NSNotificationCenterTest, AnObserverMayRemoveAndReleaseItselfWhileItIsTold)
{
    Ref<NSObject> token;
    token = center->addObserver([&](NSNotification const&) {
        center->removeObserver(*token);
        token = nullptr;
        s_log.emplace_back("once");
    });
    center->postNotificationName("N");
    center->postNotificationName("N");
    EXPECT_THAT(s_log, ElementsAre("once"));
}

TEST_F(NSNotificationCenterTest, ATokenEndsItsRegistration)
{
    auto token = center->addObserver([](NSNotification const&) { s_log.emplace_back("told"); }, "N");
    center->postNotificationName("N");
    token = nullptr;
    center->postNotificationName("N");
    EXPECT_THAT(s_log, ElementsAre("told"));
}

TEST_F(NSNotificationCenterTest, AFunctionIsCalledAsLongAsItsObserverLives)
{
    center->addObserver(
        *a, [](NSNotification const& n) { s_log.push_back(n.name); }, "N");
    center->postNotificationName("N");
    a = nullptr;
    center->postNotificationName("N");
    EXPECT_THAT(s_log, ElementsAre("N"));
}

TEST_F(NSNotificationCenterTest, RemovesByNameAndObject)
{
    center->addObserver(*a, &Listener::hear, "N");
    center->addObserver(*a, &Listener::hear, "N", object.get());
    center->addObserver(*a, &Listener::hear, "M", object.get());
    center->addObserver(*b, &Listener::hear, "N");
    center->removeObserver(*a, "N", object.get());
    center->postNotificationName("N", object);
    EXPECT_THAT(s_log, ElementsAre("a:N", "b:N"));
    s_log.clear();
    center->removeObserver(*a, "N");
    center->postNotificationName("N", object);
    center->postNotificationName("M", object);
    EXPECT_THAT(s_log, ElementsAre("b:N", "a:M"));
    s_log.clear();
    center->removeObserver(*a, std::nullopt, object.get());
    center->postNotificationName("M", object);
    EXPECT_THAT(s_log, IsEmpty());
}

TEST_F(NSNotificationCenterTest, WhatACallbackHoldsMayComeBackWhenItIsLetGo)
{
    class Returner : public NSObject {
    public:
        ~Returner() override { center->removeObserver(*this); }
        NSNotificationCenter* center { nullptr };
    };
    auto returner = make<Returner>();
    returner->center = center.get();
    for (int i = 0; i < 20; ++i)
        center->addObserver(
            *a, [returner](NSNotification const&) {}, "N");
    Weak<Returner> const weak(returner);
    returner = nullptr;
    center->removeObserver(*a);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(NSNotificationCenterTest, DeadRegistrationsAreSweptAway)
{
    auto const counted = std::make_shared<int>(0);
    for (int i = 0; i < 10'000; ++i)
        center->addObserver(
            *make<Listener>("brief"), [counted](NSNotification const&) { ++*counted; }, std::to_string(i));
    EXPECT_LT(counted.use_count(), 100);
    EXPECT_EQ(*counted, 0);
}

TEST_F(NSNotificationCenterTest, PostsMayBeNested)
{
    auto const token = center->addObserver(
        [&](NSNotification const&) {
            s_log.emplace_back("outer");
            center->postNotificationName("Inner");
        },
        "Outer");
    center->addObserver(*a, &Listener::hear);
    center->postNotificationName("Outer");
    EXPECT_THAT(s_log, ElementsAre("outer", "a:Inner", "a:Outer"));
}

}
}
