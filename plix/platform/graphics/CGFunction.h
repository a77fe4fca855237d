#pragma once

#include <plix/platform/base/Class.h>

#include <array>
#include <cstddef>
#include <span>

namespace plix {

// What a function calls: to be evaluated, and when it goes.
using CGFunctionEvaluateCallback = void (*)(void* info, float const* in, float* out);
using CGFunctionReleaseInfoCallback = void (*)(void* info);

/// A version and what the function calls.
struct CGFunctionCallbacks {
    unsigned version { 0 }; ///< 0
    CGFunctionEvaluateCallback evaluate { nullptr };
    /// Called when the function is destroyed; may be null.
    CGFunctionReleaseInfoCallback releaseInfo { nullptr };
};

/// A function of some numbers to some numbers that the host evaluates. `info` is the host's and only passed on.
class PLIX_EXPORT CGFunction : public NSObject {
    PLIX_CLASS(CGFunction, NSObject);

public:
    static constexpr std::size_t mostDimensions = 8;

    ~CGFunction() override;

    bool init() { return false; }
    bool init(void* info, std::span<float const> domain, std::span<float const> range, CGFunctionCallbacks const&);

    // How many values go in and come out.
    std::size_t domainDimension() const { return m_domainDimension; }
    std::size_t rangeDimension() const { return m_rangeDimension; }
    /// Calls the host with the input brought into the domain, and brings what it answers into the range. `in` has domainDimension()
    /// values, `out` room for rangeDimension().
    void evaluate(float const* in, float* out) const;

private:
    void* m_info { nullptr };
    std::size_t m_domainDimension { 0 };
    std::size_t m_rangeDimension { 0 };
    std::array<float, 2 * mostDimensions> m_domain {};
    std::array<float, 2 * mostDimensions> m_range {};
    CGFunctionCallbacks m_callbacks;
};

/// Holds a function.
using CGFunctionRef = Ref<CGFunction>;

/// Domain and range are pairs of a least and a greatest value, one pair a dimension; without a range outputs are not limited. Null
/// without an evaluate callback, a domain or any output dimension, and for callbacks of another version than 0.
PLIX_EXPORT CGFunctionRef CGFunctionCreate(void* info, std::size_t domainDimension, float const* domain, std::size_t rangeDimension,
    float const* range, CGFunctionCallbacks const* callbacks);

}
