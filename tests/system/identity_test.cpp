#include <plix/system/identity.h>

#include <plix/platform/foundation/machine_identity.h>
#include <plix/platform/foundation/process_identity.h>
#include <plix/system/unique_names.h>

#include <tests/support/TestFolder.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

namespace plix {
namespace {

struct TestMachine : MachineIdentity {
    EthernetQuery query;
    TestMachine() { installMachineIdentity(this); }
    ~TestMachine() override { installMachineIdentity(nullptr); }
    EthernetQuery primaryEthernetInterface() const override { return query; }
};

struct TestProcess : ProcessIdentity {
    TestProcess() { installProcessIdentity(this); }
    ~TestProcess() override { installProcessIdentity(nullptr); }
    std::vector<std::string> arguments() const override { return { "test" }; }
    std::map<std::string, std::string> environment() const override { return {}; }
    std::string hostName() const override { return "lonely.example"; }
    int processIdentifier() const override { return 4711; }
    std::string executablePath() const override { return "/usr/bin/test"; }
};

TEST(PLIXMACAddressString, IsTheAddressOrElseTheHostName)
{
    TestMachine machine;
    TestProcess process;
    EXPECT_EQ(PLIXMACAddressString(), "lonely.example");
    machine.query.interfaces.push_back({ .hardwareAddress = { { 0, 0x0A, 0x95, 0x1B, 0x2C, 3 } } });
    EXPECT_EQ(PLIXMACAddressString(), "0A951B2C3");
}

TEST(PLIXTempNames, AreOfTheMachineAndTheProcessAndCount)
{
    TestMachine machine;
    TestProcess process;
    EXPECT_EQ(PLIXProcessIDString(), "4711");
    EXPECT_EQ(PLIXTempFolderName(), ".Corvane-Temp-lonely.example-4711");
    std::string const start = ".Corvane-Temp-lonely.example-4711-";
    auto const first = PLIXTempFileName();
    auto const second = PLIXTempFileName();
    ASSERT_TRUE(first.starts_with(start) && second.starts_with(start));
    EXPECT_GE(std::stoi(first.substr(start.size())), 1);
    EXPECT_EQ(std::stoi(second.substr(start.size())), std::stoi(first.substr(start.size())) + 1);
}

TEST(PLIXUniqueString, IsANewUUIDEachTime)
{
    std::regex const form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    std::set<std::string> all;
    for (int i = 0; i < 1000; ++i) {
        auto const text = PLIXUniqueString();
        ASSERT_TRUE(std::regex_match(text, form)) << text;
        all.insert(text);
    }
    EXPECT_EQ(all.size(), 1000U);
}

TEST(PLIXSystemVersion, IsTheMachines)
{
    TestMachine machine;
    EXPECT_EQ(PLIXSystemVersion(), 0x1049U);
    EXPECT_EQ(PLIXQuickTimeVersionString(), "7.1.3");
    machine.setSystemVersion(0x1030);
    machine.setQuickTimeVersion(0x06028000);
    EXPECT_EQ(PLIXSystemVersion(), 0x1030U);
    EXPECT_EQ(PLIXQuickTimeVersionString(), "6.0.2");
}

TEST(MachineIdentity, ReadsAVersionCode)
{
    EXPECT_EQ(systemVersionFromText("0x1030"), 0x1030U);
    EXPECT_EQ(systemVersionFromText("0XffFFffFF"), 0xFFFFFFFFU);
    EXPECT_EQ(systemVersionFromText("4169"), 0x1049U);
    for (auto const* text : { "", "0x", "10.4", "0x1049 ", "-1", "0x100000000", "x1049" })
        EXPECT_EQ(systemVersionFromText(text), std::nullopt) << text;
}

TEST(PLIXUniqueFilePathAtPath, LooksAtTheRealDisk)
{
    TestFolder folder;
    auto const path = folder / "report.txt";
    EXPECT_EQ(PLIXUniqueFilePathAtPath(path, true), path);
    folder.write("report.txt");
    EXPECT_EQ(PLIXUniqueFilePathAtPath(path, true), folder / "report 1.txt");
    EXPECT_EQ(PLIXUniqueFilePathAtPath(path, false), folder / "report.txt 1");
    folder.write("report 1.txt");
    EXPECT_EQ(PLIXUniqueFilePathAtPath(path, true), folder / "report 2.txt");
    EXPECT_EQ(PLIXUniqueFilePathAtPath({}, true), std::nullopt);
    EXPECT_EQ(PLIXUniqueFilePathAtPath("x", true), std::nullopt);
    EXPECT_EQ(PLIXUniqueFilePathAtPath(folder / "nowhere/x", true), folder / "nowhere/x");
}

// The kernel's files about network interfaces, below a folder of its own.
struct FakeKernel {
    TestFolder folder;

    FakeKernel& interface(std::string const& name, char const* type, char const* address, int index, bool isUp, bool hasDevice)
    {
        auto const path = "sys/class/net/" + name + "/";
        folder.write(path + "type", std::string(type) + "\n");
        folder.write(path + "address", std::string(address) + "\n");
        folder.write(path + "ifindex", std::to_string(index) + "\n");
        folder.write(path + "operstate", isUp ? "up\n" : "down\n");
        if (hasDevice)
            folder.write(path + "device/vendor", "0x1af4\n");
        return *this;
    }
    FakeKernel& routes(std::string const& lines)
    {
        folder.write(
            "proc/net/route", "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n" + lines);
        return *this;
    }
    std::optional<std::vector<std::uint8_t>> address() const { return primaryHardwareAddress(folder.path()); }
};

std::vector<std::uint8_t> addressEndingIn(std::uint8_t last)
{
    return { 0x02, 0, 0, 0, 0, last };
}

TEST(PrimaryHardwareAddress, IsThatOfTheDefaultRouteWithTheLeastMetric)
{
    FakeKernel kernel;
    kernel.interface("eth0", "1", "02:00:00:00:00:01", 1, true, true)
        .interface("eth1", "1", "02:00:00:00:00:02", 2, false, false)
        .interface("eth2", "1", "02:00:00:00:00:03", 3, true, true)
        .interface("tun0", "65534", "02:00:00:00:00:04", 4, true, false)
        .routes("eth0\t0000A8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n"
                "eth2\t00000000\t0100A8C0\t0003\t0\t0\t200\t00000000\t0\t0\t0\n"
                "eth0\t00000000\t0100A8C0\t0002\t0\t0\t1\t00000000\t0\t0\t0\n"
                "tun0\t00000000\t0100A8C0\t0003\t0\t0\t5\t00000000\t0\t0\t0\n"
                "eth1\t00000000\t0100A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n"
                "torn\t00000000\n");
    EXPECT_EQ(kernel.address(), addressEndingIn(2));
}

TEST(PrimaryHardwareAddress, PrefersDevicesThenWhatIsUpThenTheLowestIndex)
{
    FakeKernel kernel;
    kernel.interface("ifb0", "1", "02:00:00:00:00:01", 1, true, false).routes("");
    EXPECT_EQ(kernel.address(), addressEndingIn(1));
    kernel.interface("eth9", "1", "02:00:00:00:00:09", 9, false, true);
    EXPECT_EQ(kernel.address(), addressEndingIn(9));
    kernel.interface("eth7", "1", "02:00:00:00:00:07", 10, true, true);
    EXPECT_EQ(kernel.address(), addressEndingIn(7));
    kernel.interface("eth6", "1", "02:00:00:00:00:06", 6, true, true);
    EXPECT_EQ(kernel.address(), addressEndingIn(6));
}

TEST(PrimaryHardwareAddress, PassesOverWhatIsNoEthernetOrHasNoAddress)
{
    FakeKernel kernel;
    EXPECT_EQ(kernel.address(), std::nullopt);
    kernel.interface("lo", "772", "00:00:00:00:00:00", 1, true, false)
        .interface("zero", "1", "00:00:00:00:00:00", 2, true, true)
        .interface("short", "1", "02:00:00", 3, true, true)
        .interface("odd", "1", "02:00:00:00:00:zz", 4, true, true)
        .interface("dashed", "1", "02-00-00-00-00-01", 5, true, true)
        .interface("ib0", "32", "02:00:00:00:00:01", 6, true, true)
        .routes("odd\t00000000\t0100A8C0\t0003\t0\t0\t1\t00000000\t0\t0\t0\n"
                "gone\t00000000\t0100A8C0\t0003\t0\t0\t1\t00000000\t0\t0\t0\n");
    EXPECT_EQ(kernel.address(), std::nullopt);
}

TEST(PrimaryHardwareAddress, OfThisMachineHasSixBytesOrIsNone)
{
    auto const query = machineIdentity().primaryEthernetInterface();
    ASSERT_LE(query.interfaces.size(), 1U);
    for (auto const& interface : query.interfaces)
        EXPECT_EQ(interface.hardwareAddress.value().size(), 6U);
    EXPECT_TRUE(query.hasMatchingDictionary && query.hasPropertyDictionary && query.servicesStatus == 0);
}

}
}
