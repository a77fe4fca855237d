#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

/// Through which objects write and read themselves. An object's values stand in a sequence (without key) or under keys; both are
/// its own, so what its init(NSCoder&) leaves unread disturbs nobody else. Reading beyond the end of the sequence, under a missing
/// key or a value of another kind gives nil, 0, false or "".
class PLIX_EXPORT NSCoder {
public:
    NSCoder() = default;
    NSCoder(NSCoder const&) = delete;
    NSCoder& operator=(NSCoder const&) = delete;
    virtual ~NSCoder() = default;

    /// In sequence.
    virtual void encodeObject(ObjectValue const&) = 0;
    virtual ObjectValue decodeObject() = 0;

    /// Under keys.
    virtual void encodeObject(ObjectValue const&, std::string_view forKey) = 0;
    virtual ObjectValue decodeObjectForKey(std::string_view key) = 0;
    virtual bool containsValueForKey(std::string_view key) const = 0;

    /// The same for plain values.
    void encodeBool(bool value, std::string_view forKey) { encodeObject(value, forKey); }
    void encodeInt(std::int64_t value, std::string_view forKey) { encodeObject(static_cast<long long>(value), forKey); }
    void encodeDouble(double value, std::string_view forKey) { encodeObject(value, forKey); }
    bool decodeBoolForKey(std::string_view key) { return decodeObjectForKey(key).boolValue(); }
    int decodeIntForKey(std::string_view key) { return decodeObjectForKey(key).intValue(); }
    std::int64_t decodeInt64ForKey(std::string_view key) { return decodeObjectForKey(key).integerValue(); }
    float decodeFloatForKey(std::string_view key) { return decodeObjectForKey(key).floatValue(); }
    double decodeDoubleForKey(std::string_view key) { return decodeObjectForKey(key).doubleValue(); }
    std::string decodeStringForKey(std::string_view key) { return decodeObjectForKey(key).description(); }

    /// Hands over the value under the key, where there is one: what is left out stays as it was.
    template <typename Take> void read(std::string_view key, Take const& take)
    {
        if (containsValueForKey(key))
            take(decodeObjectForKey(key));
    }

    /// The object under the key where it is of that class, else null.
    template <typename T> Ref<T> decodeForKey(std::string_view key) { return decodeObjectForKey(key).template as<T>(); }
    /// The next object of the sequence where it is of that class, else null.
    template <typename T> Ref<T> decode() { return decodeObject().template as<T>(); }
};

}
