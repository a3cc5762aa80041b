#include "interchange/thrown.h"

#include <exception>
#include <new>

namespace vexa::interchange {

std::string WhatIsThrown()
{
    try {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return {};
    }
}

} // namespace vexa::interchange
