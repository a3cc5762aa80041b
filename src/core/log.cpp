#include <cstdarg>
#include <cstring>
#include <iostream>

#include <vexa/helper.h>

#include "core/bounded.h"

namespace vexa::helper {

namespace {

constexpr std::size_t BUFFER_SIZE = 2048;

/// Leaves one place behind the longest text, beside the one for the terminating zero: the newline's.
constexpr std::size_t MAX_TEXT = BUFFER_SIZE - 2;

/// Text and newline go out in one write, so that another thread's line cannot come between them.
__attribute__((format(printf, 1, 0))) void WriteLine(const char* format, std::va_list args)
{
    if (format == nullptr) {
        return;
    }
    char buffer[BUFFER_SIZE] = {};
    core::vsnprintf_s(buffer, BUFFER_SIZE, MAX_TEXT, format, args);
    const std::size_t length = strnlen(buffer, MAX_TEXT);
    buffer[length] = '\n';
    std::cout.write(buffer, static_cast<std::streamsize>(length + 1)).flush();
}

} // namespace

void LogWarning(const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    WriteLine(format, args);
    va_end(args);
}

void LogError(const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    WriteLine(format, args);
    va_end(args);
}

} // namespace vexa::helper
