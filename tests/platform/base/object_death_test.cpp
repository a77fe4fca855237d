#include <plix/platform/base/Class.h>

#include <gtest/gtest.h>

#include <thread>

// What debug builds assert of objects. Release builds leave these checks out, so there is nothing to see there.
#ifndef NDEBUG

namespace plix {
namespace {

class Plain : public NSObject { };

class EarlyReference : public NSObject {
public:
    EarlyReference() { Ref<NSObject> const early(this); }
};

class LateReference : public NSObject {
public:
    ~LateReference() override { Ref<NSObject> const late(this); }
};

class ObjectDeathTest : public testing::Test {
protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ObjectDeathTest, AReferenceBeforeAdoptionIsRefused)
{
    EXPECT_DEATH(make<EarlyReference>(), "m_isAdopted");
}

TEST_F(ObjectDeathTest, AReferenceDuringDestructionIsRefused)
{
    EXPECT_DEATH(make<LateReference>(), "m_isBeingDestroyed");
}

TEST_F(ObjectDeathTest, ObjectsStayOnTheMainThread)
{
    auto const object = make<Plain>();
    EXPECT_DEATH(std::thread([&] { object->retain(); }).join(), "isMainThread");
}

TEST_F(ObjectDeathTest, AskingAnUndescribedClassForItsDescriptorIsRefused)
{
    EXPECT_DEATH(make<Plain>()->isa(), "typeid");
}

}
}

#endif
