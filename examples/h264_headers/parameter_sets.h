#pragma once

#include "FieldReader.h"
#include "annex_b.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace h264 {

enum class SetKind { Sequence, Picture };

/// A sequence or picture parameter set with its fields in order (clauses 7.3.2.1, 7.3.2.2 and E.1).
struct ParameterSet {
    SetKind kind { SetKind::Sequence };
    /// Of the NAL unit in the stream, in bytes, and its size.
    std::size_t position { 0 };
    std::size_t size { 0 };
    std::vector<Field> fields;
    /// Why the fields end where they do; empty where the set is whole.
    std::string fault;
};

/// All parameter sets of a byte stream. A picture parameter set is read by the last sequence parameter set of its number before it,
/// or, without one, as one for 4:2:0.
std::vector<ParameterSet> parameterSetsOf(Bytes stream);

void print(std::ostream&, ParameterSet const&);

}
