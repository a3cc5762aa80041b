#ifndef VEXA_INTERCHANGE_THROWN_H
#define VEXA_INTERCHANGE_THROWN_H

#include <string>

namespace vexa::interchange {

/// In a handler of any exception: what it says, where an application's own code has thrown it; empty where it says
/// nothing. Lack of memory is no matter of that code, and is thrown on.
std::string WhatIsThrown();

} // namespace vexa::interchange

#endif
