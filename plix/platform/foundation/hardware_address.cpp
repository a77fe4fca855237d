#include <plix/platform/foundation/machine_identity.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace plix {

namespace {

namespace fs = std::filesystem;

constexpr auto kindOfEthernet = "1"; // ARPHRD_ETHER
constexpr unsigned routeIsUp = 1; // RTF_UP
constexpr std::size_t addressLength = 6;

std::string firstWordOf(fs::path const& file)
{
    std::ifstream stream(file);
    std::string word;
    stream >> word;
    return word;
}

/// The interfaces of the default routes, the least metric first.
std::vector<std::string> defaultInterfaces(fs::path const& root)
{
    std::ifstream table(root / "proc/net/route");
    std::string line;
    std::getline(table, line); // the column titles
    std::vector<std::pair<unsigned long, std::string>> routes;
    while (std::getline(table, line)) {
        std::istringstream columns(line);
        std::string name, destination, gateway, count, use;
        unsigned flags = 0;
        unsigned long metric = 0;
        columns >> name >> destination >> gateway >> std::hex >> flags >> std::dec >> count >> use >> metric;
        if (columns && destination == "00000000" && flags & routeIsUp)
            routes.emplace_back(metric, name);
    }
    std::stable_sort(routes.begin(), routes.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (auto& route : routes)
        names.push_back(std::move(route.second));
    return names;
}

std::optional<std::vector<std::uint8_t>> addressOf(fs::path const& interface)
{
    auto const text = firstWordOf(interface / "address");
    if (text.size() != addressLength * 3 - 1)
        return {};
    std::vector<std::uint8_t> address;
    for (std::size_t i = 0; i < addressLength; ++i) {
        auto const* digits = text.data() + 3 * i;
        std::uint8_t byte = 0;
        auto const result = std::from_chars(digits, digits + 2, byte, 16);
        bool const isSeparated = i + 1 == addressLength || digits[2] == ':';
        if (result.ptr != digits + 2 || !isSeparated)
            return {};
        address.push_back(byte);
    }
    return address;
}

bool isEthernet(fs::path const& interface)
{
    return firstWordOf(interface / "type") == kindOfEthernet;
}

struct Candidate {
    bool isVirtual { false };
    bool isDown { false };
    long index { 0 };
    std::vector<std::uint8_t> address;

    friend auto operator<=>(Candidate const&, Candidate const&) = default;
};

}

std::optional<std::vector<std::uint8_t>> primaryHardwareAddress(std::string const& rootFolder)
{
    fs::path const root(rootFolder);
    auto const interfaces = root / "sys/class/net";
    for (auto const& name : defaultInterfaces(root)) {
        auto const interface = interfaces / name;
        if (!isEthernet(interface))
            continue;
        if (auto address = addressOf(interface))
            return address;
    }

    std::vector<Candidate> candidates;
    std::error_code error;
    for (fs::directory_iterator entry(interfaces, error), end; !error && entry != end; entry.increment(error)) {
        auto const& interface = entry->path();
        auto address = addressOf(interface);
        if (!address || !isEthernet(interface)
            || std::all_of(address->begin(), address->end(), [](auto byte) { return byte == 0; }))
            continue;
        std::error_code isMissing;
        candidates.push_back({
            .isVirtual = !fs::exists(interface / "device", isMissing),
            .isDown = firstWordOf(interface / "operstate") != "up",
            .index = std::strtol(firstWordOf(interface / "ifindex").c_str(), nullptr, 10),
            .address = std::move(*address),
        });
    }
    if (candidates.empty())
        return {};
    return std::min_element(candidates.begin(), candidates.end())->address;
}

}
