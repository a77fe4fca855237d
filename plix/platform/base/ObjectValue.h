#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/NSObject.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace plix {

/// "Any object" of the platform: nil, a truth value, an integer, a floating number, a string, a date, an array, a dictionary, or
/// an object with identity (data, attributed strings, images and the rest). A value: copies are independent of each other.
class PLIX_EXPORT ObjectValue {
public:
    // What arrays and dictionaries are.
    using Array = std::vector<ObjectValue>;
    using Dictionary = std::map<std::string, ObjectValue>;

    ObjectValue() = default;
    ObjectValue(std::nullptr_t) { }
    ObjectValue(bool value)
        : m_value(value)
    {
    }
    ObjectValue(int value)
        : m_value(std::int64_t { value })
    {
    }
    ObjectValue(long value)
        : m_value(std::int64_t { value })
    {
    }
    ObjectValue(long long value)
        : m_value(std::int64_t { value })
    {
    }
    ObjectValue(unsigned value)
        : m_value(std::int64_t { value })
    {
    }
    ObjectValue(double value)
        : m_value(value)
    {
    }
    ObjectValue(float value)
        : m_value(double { value })
    {
    }
    /// A null pointer gives nil.
    ObjectValue(char const* text)
    {
        if (text)
            m_value = std::string(text);
    }
    ObjectValue(std::string text)
        : m_value(std::move(text))
    {
    }
    ObjectValue(std::string_view text)
        : m_value(std::string(text))
    {
    }
    ObjectValue(NSDate date)
        : m_value(date)
    {
    }
    ObjectValue(Array array)
        : m_value(std::move(array))
    {
    }
    ObjectValue(Dictionary dictionary)
        : m_value(std::move(dictionary))
    {
    }
    /// A null reference gives nil.
    template <typename T> ObjectValue(Ref<T> const& object)
    {
        if (object)
            m_value = Ref<NSObject>(object);
    }

    // Of which kind it is.
    bool isNil() const { return std::holds_alternative<std::monostate>(m_value); }
    explicit operator bool() const { return !isNil(); }
    bool isBool() const { return std::holds_alternative<bool>(m_value); }
    bool isInteger() const { return std::holds_alternative<std::int64_t>(m_value); }
    bool isDouble() const { return std::holds_alternative<double>(m_value); }
    /// A truth value, an integer or a floating number.
    bool isNumber() const { return isBool() || isInteger() || isDouble(); }
    bool isString() const { return std::holds_alternative<std::string>(m_value); }
    bool isDate() const { return std::holds_alternative<NSDate>(m_value); }
    bool isArray() const { return std::holds_alternative<Array>(m_value); }
    bool isDictionary() const { return std::holds_alternative<Dictionary>(m_value); }
    bool isObject() const { return std::holds_alternative<Ref<NSObject>>(m_value); }

    /// The held thing where it is of that kind, else null.
    std::string const* string() const { return std::get_if<std::string>(&m_value); }
    NSDate const* date() const { return std::get_if<NSDate>(&m_value); }
    Array const* array() const { return std::get_if<Array>(&m_value); }
    Dictionary const* dictionary() const { return std::get_if<Dictionary>(&m_value); }
    NSObject* object() const
    {
        auto const* object = std::get_if<Ref<NSObject>>(&m_value);
        return object ? object->get() : nullptr;
    }
    /// The held object where it is of that class, else null.
    template <typename T> Ref<T> as() const { return Ref<T>(dynamic_cast<T*>(object())); }

    /// As a number: of a number its value, of a string what it begins with (blanks, sign, digits), of anything else 0.
    /// Out of range: the nearest value of the type; not a number: 0.
    bool boolValue() const;
    int intValue() const;
    std::int64_t integerValue() const;
    float floatValue() const { return static_cast<float>(doubleValue()); }
    double doubleValue() const;
    /// As text: of a string itself, of a number its shortest decimal form, of an object its description, of nil "".
    std::string description() const;

    /// Equal by value; objects by isEqual(). Numbers compare across their kinds.
    friend bool operator==(ObjectValue const& a, ObjectValue const& b);
    /// The same object, or equal where there is no identity to compare.
    bool isIdentical(ObjectValue const& other) const;

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::string, NSDate, Array, Dictionary, Ref<NSObject>> m_value;
};

/// The number a string begins with after blanks, as the platform's doubleValue reads it: sign, digits, point, exponent; 0 where
/// there is none. Independent of the locale.
PLIX_EXPORT double doubleValue(std::string_view text);
/// Likewise for whole numbers, stopping at the first that is no digit; the nearest 32-bit value where it is out of range.
PLIX_EXPORT int intValue(std::string_view text);

}
