#pragma once

#include <plix/platform/base/Class.h>

#include <cstdint>
#include <span>
#include <vector>

namespace plix {

/// Bytes that never change; shared freely.
class PLIX_EXPORT NSData : public NSObject {
    PLIX_CLASS(NSData, NSObject);

public:
    bool init() { return true; }
    bool init(std::vector<std::uint8_t> bytes);
    bool init(std::span<std::uint8_t const> bytes);

    // The bytes, which stay where they are as long as the object lives.
    std::size_t length() const { return m_bytes.size(); }
    std::span<std::uint8_t const> bytes() const { return m_bytes; }

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

private:
    void copyStateTo(NSObject& fresh) const override;

    std::vector<std::uint8_t> m_bytes;
};

}
