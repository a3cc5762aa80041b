#include <atomic>
#include <cstdarg>
#include <cstring>
#include <cxxabi.h>
#include <iostream>
#include <string_view>

#include <vexa/helper.h>

#include "core/bounded.h"

namespace vexa::helper {

namespace {

constexpr std::size_t BUFFER_SIZE = 2048;

/// Leaves one place behind the longest text, beside the one for the terminating zero: the newline's.
constexpr std::size_t MAX_TEXT = BUFFER_SIZE - 2;

std::atomic<LogHandler> s_handler{nullptr};

/// A line that the handler itself logs does not come back to it.
thread_local bool s_isHandling = false;

class CHandlingScope {
public:
    CHandlingScope() noexcept { s_isHandling = true; }
    CHandlingScope(const CHandlingScope&) = delete;
    CHandlingScope& operator=(const CHandlingScope&) = delete;
    ~CHandlingScope() { s_isHandling = false; }
};

/// \return whether the application has taken the line.
bool IsHandled(LogLevel level, std::string_view text)
{
    const LogHandler handler = s_handler.load(std::memory_order_acquire);
    if (handler == nullptr || s_isHandling) return false;
    const CHandlingScope scope;
    try {
        handler(level, text);
        return true;
    } catch (const abi::__forced_unwind&) {
        throw; // the thread is being cancelled
    } catch (...) {
        return false;
    }
}

/// Text and newline go out in one write, so that another thread's line cannot come between them.
__attribute__((format(printf, 2, 0))) void WriteLine(LogLevel level, const char* format, std::va_list args)
{
    if (format == nullptr) {
        return;
    }
    char buffer[BUFFER_SIZE] = {};
    core::vsnprintf_s(buffer, BUFFER_SIZE, MAX_TEXT, format, args);
    const std::size_t length = strnlen(buffer, MAX_TEXT);
    if (IsHandled(level, {buffer, length})) return;
    buffer[length] = '\n';
    std::cout.write(buffer, static_cast<std::streamsize>(length + 1)).flush();
}

} // namespace

LogHandler SetLogHandler(LogHandler handler) noexcept { return s_handler.exchange(handler, std::memory_order_acq_rel); }

void LogWarning(const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    WriteLine(LogLevel::WARNING, format, args);
    va_end(args);
}

void LogError(const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    WriteLine(LogLevel::ERROR, format, args);
    va_end(args);
}

} // namespace vexa::helper
