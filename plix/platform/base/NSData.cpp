#include <plix/platform/base/NSData.h>

#include <algorithm>
#include <string_view>

namespace plix {

PLIX_DESCRIBE(NSData)
{
}

bool NSData::init(std::vector<std::uint8_t> bytes)
{
    m_bytes = std::move(bytes);
    return true;
}

bool NSData::init(std::span<std::uint8_t const> bytes)
{
    m_bytes.assign(bytes.begin(), bytes.end());
    return true;
}

bool NSData::isEqual(NSObject const* other) const
{
    auto const* data = dynamic_cast<NSData const*>(other);
    return data && data->m_bytes == m_bytes;
}

std::size_t NSData::hash() const
{
    std::string_view const prefix(reinterpret_cast<char const*>(m_bytes.data()), std::min<std::size_t>(m_bytes.size(), 80));
    return std::hash<std::string_view> {}(prefix);
}

void NSData::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<NSData&>(fresh).m_bytes = m_bytes;
}

}
