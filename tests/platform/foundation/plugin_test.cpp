#include "../../support/TestFolder.h"

#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PluginTest : public testing::Test {
protected:
    PluginTest()
        : m_sinkBefore(installLogSink([this](std::string_view line) { lines.emplace_back(line); }))
    {
        NSBundle::staticClass();
    }
    ~PluginTest() override { installLogSink(m_sinkBefore); }

    static Ref<NSBundle> built(std::string const& name)
    {
        return NSBundle::bundleWithPath(std::string(PLIX_TEST_PLUGINS) + '/' + name + ".bundle");
    }
    static std::string info(std::string const& executable, std::string const& principalClass = {})
    {
        return "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>" + executable + "</string>"
            + (principalClass.empty() ? "" : "<key>NSPrincipalClass</key><string>" + principalClass + "</string>")
            + "</dict></plist>";
    }
    static std::string moduleBytes(std::string const& name)
    {
        auto const path = std::string(PLIX_TEST_PLUGINS) + '/' + name + ".bundle/" + name + ".so";
        std::ifstream file(path, std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }
    /// What load() says of the bundle, which it must refuse.
    std::string fault(NSBundle& bundle)
    {
        lines.clear();
        EXPECT_FALSE(bundle.load());
        EXPECT_FALSE(bundle.isLoaded());
        if (lines.size() != 1)
            return "not one line";
        auto const begin = "NSBundle: " + bundle.bundlePath() + " is not loaded: ";
        return lines[0].starts_with(begin) ? lines[0].substr(begin.size()) : lines[0];
    }

    TestFolder folder;
    std::vector<std::string> lines;

private:
    LogSink m_sinkBefore;
};

TEST_F(PluginTest, ALoadedModulesClassesAreKnown)
{
    auto const bundle = built("Greeter");
    EXPECT_FALSE(bundle->isLoaded());
    EXPECT_TRUE(bundle->load());
    EXPECT_TRUE(bundle->isLoaded());
    EXPECT_TRUE(bundle->load());
    auto const* greeter = bundle->classNamed("Greeter");
    ASSERT_TRUE(greeter);
    EXPECT_EQ(greeter, NSClassFromString("Greeter"));
    EXPECT_EQ(bundle->principalClass(), greeter);
    EXPECT_EQ(bundle->classNamed("LouderGreeter")->superclass(), greeter);
    EXPECT_EQ(greeter->superclass(), &NSObject::staticClass());
    EXPECT_EQ(&NSBundle::bundleForClass(*greeter), bundle.get());
    EXPECT_THAT(lines, IsEmpty());
}

TEST_F(PluginTest, ObjectsOfAModulesClassAreObjects)
{
    auto const* louder = built("Greeter")->classNamed("LouderGreeter");
    auto const object = louder->makeObject();
    ASSERT_TRUE(object);
    EXPECT_EQ(&object->isa(), louder);
    (*louder->action(Selector("greet:")))(*object, nullptr);
    EXPECT_THAT(lines, ElementsAre("a module greets"));
}

TEST_F(PluginTest, AClassOfSomebodyElseIsNoneOfTheModules)
{
    auto const bundle = built("Greeter");
    EXPECT_EQ(bundle->classNamed("NSObject"), nullptr);
    EXPECT_EQ(bundle->classNamed("NSBundle"), nullptr);
    EXPECT_EQ(bundle->classNamed("Nobody"), nullptr);
    EXPECT_EQ(bundle->classNamed(""), nullptr);
    EXPECT_EQ(NSBundle::mainBundle().classNamed("Greeter"), nullptr);
    EXPECT_EQ(NSBundle::mainBundle().classNamed("NSBundle"), &NSBundle::staticClass());
}

TEST_F(PluginTest, TheProgramAndTheLibraryAreLoaded)
{
    EXPECT_TRUE(NSBundle::mainBundle().isLoaded());
    EXPECT_TRUE(NSBundle::mainBundle().load());
    EXPECT_EQ(NSBundle::mainBundle().principalClass(), nullptr);
    EXPECT_TRUE(NSBundle::libraryBundle().load());
    EXPECT_THAT(lines, IsEmpty());
}

TEST_F(PluginTest, AFolderThatIsNoBundle)
{
    folder.write("Plain.bundle/readme.txt");
    auto const bundle = NSBundle::bundleWithPath(folder / "Plain.bundle");
    EXPECT_EQ(fault(*bundle), "it has no Info.plist that names a module");
    EXPECT_EQ(bundle->classNamed("Greeter"), nullptr);
    EXPECT_EQ(bundle->principalClass(), nullptr);
    // Each attempt looks anew.
    folder.write("Plain.bundle/Info.plist", info("Missing"));
    EXPECT_EQ(fault(*bundle), "its module Missing is missing");
    EXPECT_EQ(NSBundle::bundleWithPath(folder / "None.bundle"), nullptr);
}

TEST_F(PluginTest, AModuleOutsideItsBundle)
{
    folder.write("evil.so", moduleBytes("Greeter"));
    for (auto const& name : { "../evil.so", "/evil.so", "..", "a/b" }) {
        folder.write("Reaching.bundle/Info.plist", info(name));
        EXPECT_EQ(fault(*NSBundle::bundleWithPath(folder / "Reaching.bundle")), "its module is outside of it") << name;
    }
    folder.write("Reaching.bundle/Info.plist", info(""));
    EXPECT_EQ(fault(*NSBundle::bundleWithPath(folder / "Reaching.bundle")), "it has no Info.plist that names a module");
}

TEST_F(PluginTest, AFileThatIsNoModule)
{
    folder.write("Text.bundle/Info.plist", info("module"));
    auto const bundle = NSBundle::bundleWithPath(folder / "Text.bundle");
    for (auto const* text : { "", "\x7f", "#!/bin/sh\nexit 0\n" }) {
        folder.write("Text.bundle/module", text);
        EXPECT_EQ(fault(*bundle), "it is no module");
    }
    std::filesystem::remove(folder / "Text.bundle/module");
    std::filesystem::create_directory(folder / "Text.bundle/module");
    EXPECT_EQ(fault(*bundle), "its module module is missing");
}

TEST_F(PluginTest, AModuleThatWasCutOff)
{
    auto const bytes = moduleBytes("Greeter");
    ASSERT_GT(bytes.size(), 4096U);
    folder.write("Cut.bundle/Info.plist", info("Cut"));
    auto const bundle = NSBundle::bundleWithPath(folder / "Cut.bundle");
    for (auto const size :
        { std::size_t { 5 }, std::size_t { 63 }, std::size_t { 64 }, std::size_t { 300 }, std::size_t { 4096 } }) {
        folder.write("Cut.bundle/Cut.so", bytes.substr(0, size));
        EXPECT_EQ(fault(*bundle), "it is cut off") << size;
    }
}

TEST_F(PluginTest, AProgramIsNoModule)
{
    std::filesystem::create_directory(folder / "Program.bundle");
    std::filesystem::create_symlink(std::filesystem::read_symlink("/proc/self/exe"), folder / "Program.bundle/Program");
    folder.write("Program.bundle/Info.plist", info("Program"));
    EXPECT_THAT(fault(*NSBundle::bundleWithPath(folder / "Program.bundle")), Not(HasSubstr("one line")));
}

TEST_F(PluginTest, ModulesThatAreUnfit)
{
    EXPECT_EQ(fault(*built("Nothing")), "it registers no class");
    EXPECT_THAT(fault(*built("Unresolved")), AllOf(HasSubstr("undefined symbol"), HasSubstr("functionThatNobodyWrote")));
    EXPECT_EQ(NSClassFromString("Unresolved"), nullptr);
    EXPECT_EQ(fault(*built("OfAnotherVersion")), "it was built for another version");
    EXPECT_EQ(fault(*built("WithItsOwnLibrary")), "it carries a library of its own");
    EXPECT_EQ(NSClassFromString("OtherRoot"), nullptr);
}

TEST_F(PluginTest, AModuleWithAClassThatThereIsAlreadyAddsNone)
{
    auto const* own = NSClassFromString("NSBundle");
    EXPECT_EQ(fault(*built("Clashing")), "there is a class NSBundle already");
    EXPECT_EQ(NSClassFromString("NSBundle"), own);
    EXPECT_EQ(NSClassFromString("FirstOfTwo"), nullptr);
}

TEST_F(PluginTest, TheSameModuleInAnotherBundleAddsNone)
{
    ASSERT_TRUE(built("Greeter")->load());
    folder.write("Twin.bundle/Contents/Info.plist", info("Twin"));
    folder.write("Twin.bundle/Contents/Twin.so", moduleBytes("Greeter"));
    auto const twin = NSBundle::bundleWithPath(folder / "Twin.bundle");
    EXPECT_EQ(fault(*twin), "there is a class LouderGreeter already");
    EXPECT_EQ(&NSBundle::bundleForClass(*NSClassFromString("Greeter")), built("Greeter").get());
}

}
}
