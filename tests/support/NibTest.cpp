#include <tests/support/NibTest.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NibHelper)
{
}

PLIX_DESCRIBE(NibOwner)
{
    description.outlet("window", &NibOwner::setWindow)
        .outlet("nameField", &NibOwner::setNameField)
        .outlet("helper", &NibOwner::setHelper)
        .action("choose:", &NibOwner::choose)
        .fillsHooks<>();
}

void NibOwner::awakeFromNib()
{
    ++awakenings;
    wasConnectedWhenAwakened = window && nameField;
}

NibTest::NibTest()
    : owner(make<NibOwner>())
{
    NibOwner::staticClass();
    NibHelper::staticClass();
    m_previousSink = installLogSink([this](std::string_view line) { log.emplace_back(line); });
}

NibTest::~NibTest()
{
    installLogSink(m_previousSink);
}

std::string NibTest::document(std::string_view objects)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0"><objects>)"
        + std::string(objects) + "</objects></document>";
}

std::string NibTest::documentWithOwner(std::string_view objects, std::string_view connections)
{
    return document("<customObject id=\"-2\"><connections>" + std::string(connections)
        + "</connections></customObject><customObject id=\"-1\"/><customObject id=\"-3\"/>" + std::string(objects));
}

Ref<NSNib> NibTest::nib(std::string_view text)
{
    auto const* bytes = reinterpret_cast<std::uint8_t const*>(text.data());
    return make<NSNib>(*make<NSData>(std::vector<std::uint8_t>(bytes, bytes + text.size())), nullptr);
}

std::vector<Ref<NSObject>> NibTest::load(std::string_view text)
{
    std::vector<Ref<NSObject>> objects;
    auto const loaded = nib(text);
    if (loaded)
        loaded->instantiateNibWithOwner(owner.get(), &objects);
    return objects;
}

int NibTest::lines(std::string_view part) const
{
    return static_cast<int>(std::ranges::count_if(log, [&](auto const& line) { return line.find(part) != std::string::npos; }));
}

}
