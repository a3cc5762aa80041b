#ifndef VEXA_VALUE_STATE_H
#define VEXA_VALUE_STATE_H

#include <cstdint>

namespace vexa {
namespace Enum {

/// What a CDateTime or a CNumeric holds.
enum ValueStateEnum : std::uint32_t {
    VS_NULL = 0,  ///< no value
    VS_VALID = 1, ///< a value
    VS_ERROR = 2, ///< a value was given, but it could not be read
};

} // namespace Enum
} // namespace vexa

#endif
