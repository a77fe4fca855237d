#include <plix/platform/graphics/CGFunction.h>

#include <algorithm>
#include <limits>

namespace plix {

namespace {

constexpr std::size_t mostDimensions = CGFunction::mostDimensions;

float limited(float value, float low, float high)
{
    return value > low ? std::min(value, high) : low;
}

}

PLIX_DESCRIBE(CGFunction)
{
}

CGFunction::~CGFunction()
{
    if (m_callbacks.releaseInfo)
        m_callbacks.releaseInfo(m_info);
}

bool CGFunction::init(void* info, std::span<float const> domain, std::span<float const> range, CGFunctionCallbacks const& callbacks)
{
    m_info = info;
    m_domainDimension = domain.size() / 2;
    m_rangeDimension = range.size() / 2;
    std::copy(domain.begin(), domain.end(), m_domain.begin());
    std::copy(range.begin(), range.end(), m_range.begin());
    m_callbacks = callbacks;
    return true;
}

void CGFunction::evaluate(float const* in, float* out) const
{
    float inputs[mostDimensions] {};
    for (std::size_t i = 0; i < domainDimension(); ++i)
        inputs[i] = limited(in[i], m_domain[2 * i], m_domain[2 * i + 1]);
    m_callbacks.evaluate(m_info, inputs, out);
    for (std::size_t i = 0; i < rangeDimension(); ++i)
        out[i] = limited(out[i], m_range[2 * i], m_range[2 * i + 1]);
}

CGFunctionRef CGFunctionCreate(void* info, std::size_t domainDimension, float const* domain, std::size_t rangeDimension,
    float const* range, CGFunctionCallbacks const* callbacks)
{
    bool const isUsable = callbacks && callbacks->evaluate && callbacks->version == 0 && domain && domainDimension > 0
        && domainDimension <= mostDimensions && rangeDimension > 0 && rangeDimension <= mostDimensions;
    if (!isUsable)
        return nullptr;
    float unlimited[2 * mostDimensions];
    for (std::size_t i = 0; i < mostDimensions; ++i) {
        unlimited[2 * i] = std::numeric_limits<float>::lowest();
        unlimited[2 * i + 1] = std::numeric_limits<float>::max();
    }
    return make<CGFunction>(
        info, std::span(domain, 2 * domainDimension), std::span(range ? range : unlimited, 2 * rangeDimension), *callbacks);
}

}
