#include "../../support/TestEventSource.h"
#include "../../support/TestFolder.h"
#include "../../support/TestSurroundings.h"

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSUserDefaults.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class NSUserDefaultsTest : public testing::Test {
protected:
    NSUserDefaultsTest()
    {
        set.config = folder.path();
        before = installLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~NSUserDefaultsTest() override { installLogSink(before); }
    Ref<NSUserDefaults> open(char const* name = "app") { return make<NSUserDefaults>(name); }

    TestFolder folder;
    TestSurroundings set;
    LogSink before;
    std::vector<std::string> log;
};

TEST_F(NSUserDefaultsTest, ValuesComeBackFromTheFile)
{
    auto defaults = open();
    defaults->setBool(true, "bool");
    defaults->setInteger(-7, "int");
    defaults->setFloat(0.5F, "float");
    defaults->setObject("té<xt", "string");
    defaults->setObject(ObjectValue::Array { "a", "b" }, "array");
    defaults->setObject(ObjectValue::Dictionary { { "k", 1 } }, "dictionary");
    defaults->setObject(make<NSData>(std::vector<std::uint8_t> { 1, 2 }), "data");
    EXPECT_TRUE(defaults->synchronize());
    defaults = open();
    EXPECT_TRUE(defaults->boolForKey("bool"));
    EXPECT_EQ(defaults->integerForKey("int"), -7);
    EXPECT_EQ(defaults->floatForKey("float"), 0.5F);
    EXPECT_EQ(defaults->stringForKey("string"), "té<xt");
    EXPECT_EQ(defaults->stringForKey("int"), "-7");
    EXPECT_EQ(defaults->stringArrayForKey("array"), (std::vector<std::string> { "a", "b" }));
    EXPECT_EQ(defaults->arrayForKey("array")->size(), 2U);
    EXPECT_EQ(defaults->dictionaryForKey("dictionary")->at("k"), ObjectValue(1));
    EXPECT_EQ(defaults->dataForKey("data")->length(), 2U);
    auto const attributes = NSFileManager::defaultManager().fileAttributesAtPath(folder / "app/defaults.plist", true);
    EXPECT_EQ(attributes->posixPermissions, 0600U);
    EXPECT_EQ(NSFileManager::defaultManager().directoryContentsAtPath(folder / "app")->size(), 1U);
}

TEST_F(NSUserDefaultsTest, WhatIsNothingOfTheKindIsNil)
{
    auto const defaults = open();
    defaults->setObject(ObjectValue::Array { "a", 1 }, "array");
    EXPECT_FALSE(defaults->stringForKey("array"));
    EXPECT_FALSE(defaults->stringArrayForKey("array"));
    EXPECT_FALSE(defaults->dictionaryForKey("array"));
    EXPECT_FALSE(defaults->arrayForKey("none"));
    EXPECT_EQ(defaults->dataForKey("array"), nullptr);
    EXPECT_TRUE(defaults->objectForKey("none").isNil());
    EXPECT_EQ(defaults->integerForKey("none"), 0);
    EXPECT_FALSE(defaults->boolForKey("none"));
}

TEST_F(NSUserDefaultsTest, DomainsAreSearchedInOrder)
{
    auto const defaults = open();
    defaults->registerDefaults({ { "key", "registered" }, { NSDecimalSeparator, "registered" } });
    EXPECT_EQ(defaults->stringForKey("key"), "registered");
    EXPECT_EQ(defaults->stringForKey(NSDecimalSeparator), ".");
    defaults->setGlobalObject("global", "key");
    EXPECT_EQ(defaults->stringForKey("key"), "global");
    defaults->setObject("own", "key");
    EXPECT_EQ(defaults->stringForKey("key"), "own");
    defaults->setVolatileDomain({ { "key", "argument" } }, NSArgumentDomain);
    EXPECT_EQ(defaults->stringForKey("key"), "argument");
    EXPECT_EQ(defaults->dictionaryRepresentation().at("key"), ObjectValue("argument"));
    defaults->setVolatileDomain({}, NSArgumentDomain);
    defaults->removeObjectForKey("key");
    EXPECT_EQ(defaults->stringForKey("key"), "global");
    defaults->setGlobalObject(nullptr, "key");
    EXPECT_EQ(defaults->stringForKey("key"), "registered");
    EXPECT_EQ(defaults->volatileDomainForName(NSRegistrationDomain).size(), 2U);
}

TEST_F(NSUserDefaultsTest, GlobalValuesAreEverybodys)
{
    auto const one = open("one");
    one->setGlobalObject(5, "size");
    one->setObject(6, "own");
    EXPECT_TRUE(one->synchronize());
    auto const other = open("other");
    EXPECT_EQ(other->integerForKey("size"), 5);
    EXPECT_EQ(other->integerForKey("own"), 0);
}

TEST_F(NSUserDefaultsTest, ArgumentsArePairs)
{
    auto const domain
        = defaultsFromArguments({ "-program", "-a", "1", "file", "-b", "-c", "-5", "--long", "x", "-d", "--y", "-e" });
    EXPECT_EQ(domain, (ObjectValue::Dictionary { { "a", "1" }, { "c", "-5" } }));
    EXPECT_THAT(defaultsFromArguments({}), IsEmpty());
    EXPECT_THAT(defaultsFromArguments({ "p", "-" }), IsEmpty());
}

TEST_F(NSUserDefaultsTest, TheLocaleAnswersWhatNobodySet)
{
    set.locale = "de_AT";
    auto const defaults = open();
    EXPECT_EQ(defaults->stringForKey(NSDecimalSeparator), ",");
    EXPECT_EQ(defaults->stringArrayForKey(NSMonthNameArray)->at(0), "Jänner");
    EXPECT_EQ(defaults->stringArrayForKey(NSWeekDayNameArray)->at(0), "Sonntag");
    EXPECT_EQ(defaults->stringArrayForKey(NSShortMonthNameArray)->size(), 12U);
    EXPECT_EQ(defaults->stringArrayForKey(NSShortWeekDayNameArray)->size(), 7U);
    EXPECT_EQ(defaults->stringArrayForKey(NSAMPMDesignation)->size(), 2U);
    EXPECT_THAT(*defaults->stringForKey(NSShortDateFormatString), HasSubstr("%m"));
    EXPECT_THAT(*defaults->stringForKey(NSTimeFormatString), HasSubstr("%M"));
    EXPECT_THAT(*defaults->stringForKey(NSDateFormatString), HasSubstr("%A"));
    EXPECT_EQ(defaults->stringForKey(NSCurrencySymbol), "€");
    EXPECT_NE(defaults->stringForKey(NSThousandsSeparator), std::nullopt);
    defaults->setObject("'", NSDecimalSeparator);
    EXPECT_EQ(defaults->stringForKey(NSDecimalSeparator), "'");
}

TEST_F(NSUserDefaultsTest, DatesFollowTheUsersNames)
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    auto const date = NSCalendarDate::dateWithYear(2005, 1, 2, 0, 0, 0);
    EXPECT_EQ(date.descriptionWithCalendarFormat("%B %a"), "January Sun");
    ObjectValue::Array months(12, "Month");
    defaults.setObject(months, NSMonthNameArray);
    defaults.setObject(ObjectValue::Array { "too few" }, NSShortWeekDayNameArray);
    defaults.setObject("%d!", NSDateFormatString);
    EXPECT_EQ(date.descriptionWithCalendarFormat("%B %a %x"), "Month Sun 02!");
    set.locale = "de_AT";
    EXPECT_EQ(date.descriptionWithCalendarFormat("%B %A"), "Month Sonntag");
    defaults.removeObjectForKey(NSMonthNameArray);
    EXPECT_EQ(date.descriptionWithCalendarFormat("%B"), "Jänner");
}

TEST_F(NSUserDefaultsTest, TheStandardOnesAreMadeAnewForOtherSurroundings)
{
    NSUserDefaults::standardUserDefaults().setObject("here", "key");
    NSUserDefaults::resetStandardUserDefaults();
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().stringForKey("key"), "here");
    EXPECT_TRUE(NSFileManager::defaultManager().fileExistsAtPath(folder / "test_foundation/defaults.plist"));
    TestFolder const elsewhere;
    TestSurroundings other;
    other.config = elsewhere.path();
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().stringForKey("key"), std::nullopt);
}

TEST_F(NSUserDefaultsTest, AChangeIsSavedByTheRunLoop)
{
    TestClock clock;
    TestEventSource const source(clock);
    auto const defaults = open();
    defaults->setObject(1, "a");
    defaults->setObject(2, "b");
    EXPECT_EQ(folder.read("app/defaults.plist"), "");
    NSRunLoop::currentRunLoop().runUntilDate(clock.now().addTimeInterval(1));
    EXPECT_EQ(open()->integerForKey("b"), 2);
}

TEST_F(NSUserDefaultsTest, AChangeIsPostedOnceAndOnlyWhereItIsOne)
{
    auto const defaults = open();
    int posts = 0;
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) { ++posts; }, NSUserDefaultsDidChangeNotification, defaults.get());
    defaults->setObject(1, "a");
    EXPECT_EQ(posts, 1);
    defaults->setObject(1, "a");
    defaults->removeObjectForKey("none");
    EXPECT_EQ(posts, 1);
    defaults->setObject(true, "a");
    EXPECT_EQ(posts, 2);
    defaults->synchronize();
    EXPECT_EQ(posts, 2);
    auto const other = open();
    other->setObject(3, "c");
    other->synchronize();
    defaults->synchronize();
    EXPECT_EQ(posts, 3);
    EXPECT_EQ(defaults->integerForKey("c"), 3);
}

TEST_F(NSUserDefaultsTest, WhatIsNoPropertyListIsRefused)
{
    auto const defaults = open();
    defaults->setObject(Ref<NSObject>(defaults), "key");
    EXPECT_TRUE(defaults->objectForKey("key").isNil());
    EXPECT_THAT(log, ElementsAre(HasSubstr("no property list")));
}

TEST_F(NSUserDefaultsTest, TwoProcessesDoNotUndoEachOther)
{
    auto const one = open();
    auto const other = open();
    one->setObject(1, "one");
    other->setObject(2, "other");
    one->setObject(1, "both");
    other->setObject(2, "both");
    EXPECT_TRUE(one->synchronize());
    EXPECT_TRUE(other->synchronize());
    EXPECT_EQ(other->integerForKey("one"), 1);
    EXPECT_TRUE(one->synchronize());
    EXPECT_EQ(one->integerForKey("other"), 2);
    EXPECT_EQ(one->integerForKey("both"), 2);
    one->removeObjectForKey("other");
    other->setObject(5, "more");
    EXPECT_TRUE(one->synchronize());
    EXPECT_TRUE(other->synchronize());
    EXPECT_TRUE(other->objectForKey("other").isNil());
}

TEST_F(NSUserDefaultsTest, ManyProcessesAtOnceLoseNothing)
{
    constexpr int processes = 4;
    constexpr int keys = 25;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        auto const child = ::fork();
        if (child == 0) {
            auto const defaults = open();
            bool areSaved = true;
            for (int key = 0; key < keys; ++key) {
                defaults->setObject(key, std::to_string(process) + "-" + std::to_string(key));
                areSaved &= defaults->synchronize();
            }
            ::_exit(areSaved ? 0 : 1);
        }
        children.push_back(child);
    }
    for (auto const child : children) {
        int status = 1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(open()->dictionaryRepresentation().size(), std::size_t { processes * keys });
}

TEST_F(NSUserDefaultsTest, ADamagedFileIsPassedOverAndKept)
{
    folder.write("app/defaults.plist", "<plist><dict><key>a</key>");
    auto const defaults = open();
    EXPECT_TRUE(defaults->objectForKey("a").isNil());
    EXPECT_THAT(log, ElementsAre(HasSubstr("passed over")));
    defaults->setObject(1, "b");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(folder.read("app/defaults.plist.damaged"), "<plist><dict><key>a</key>");
    EXPECT_EQ(open()->integerForKey("b"), 1);
}

TEST_F(NSUserDefaultsTest, AFileOfSomethingElseIsPassedOver)
{
    folder.write("app/defaults.plist", "<plist><array/></plist>");
    EXPECT_THAT(open()->dictionaryRepresentation(), IsEmpty());
    EXPECT_THAT(log, ElementsAre(HasSubstr("it is no dictionary")));
}

TEST_F(NSUserDefaultsTest, WhatCannotBeSavedStays)
{
    folder.write("app", "a file where the folder should be");
    auto const defaults = open();
    defaults->setObject(1, "a");
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(defaults->integerForKey("a"), 1);
    NSFileManager::defaultManager().removeFileAtPath(folder / "app");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(open()->integerForKey("a"), 1);
}

TEST_F(NSUserDefaultsTest, ALinkedFileStaysALink)
{
    folder.write("real.plist", "<plist><dict><key>a</key><integer>4</integer></dict></plist>");
    folder.write("app/x");
    ASSERT_TRUE(NSFileManager::defaultManager().createSymbolicLinkAtPath(folder / "app/defaults.plist", folder / "real.plist"));
    auto const defaults = open();
    EXPECT_EQ(defaults->integerForKey("a"), 4);
    defaults->setObject(5, "a");
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_THAT(folder.read("real.plist"), HasSubstr("<integer>5</integer>"));
    EXPECT_EQ(
        NSFileManager::defaultManager().pathContentOfSymbolicLinkAtPath(folder / "app/defaults.plist"), folder / "real.plist");
}

TEST_F(NSUserDefaultsTest, NamesDoNotLeadOutOfTheFolder)
{
    for (auto const* name : { "", "..", "/", "a/../../b" }) {
        auto const defaults = open(name);
        defaults->setObject(1, "key");
        EXPECT_TRUE(defaults->synchronize()) << name;
    }
    auto const names = NSFileManager::defaultManager().directoryContentsAtPath(folder.path());
    EXPECT_THAT(*names, testing::UnorderedElementsAre("unnamed", "b"));
}

}
}
