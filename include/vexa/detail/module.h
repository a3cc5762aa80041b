#ifndef VEXA_DETAIL_MODULE_H
#define VEXA_DETAIL_MODULE_H

#include <vexa/export.h>

namespace vexa::detail {

/// No class that is registered from the shared object that holds \p address is found from now on.
VEXA_API void ForgetModule(const void* address) noexcept;

/// Tells when the program or shared object that it lies in goes. It is made before, and so goes after, everything
/// static of the files that include it.
class CModuleEnd {
public:
    constexpr CModuleEnd() noexcept = default;
    CModuleEnd(const CModuleEnd&) = delete;
    CModuleEnd& operator=(const CModuleEnd&) = delete;
    ~CModuleEnd() { ForgetModule(this); }
};

/// One in each program and shared object, which share it with no other.
inline __attribute__((visibility("hidden"))) CModuleEnd MODULE_END;

} // namespace vexa::detail

#endif
