#ifndef VEXA_HELPER_H
#define VEXA_HELPER_H

#include <string>
#include <string_view>

#include <vexa/export.h>

/// Writes "Coredump due to assertion failure: ..." with the expression, the file, the line and the function to standard
/// error, without a newline, and aborts. A null text is printed as "NULL".
///
/// For the assertion checks of the code that uses the library, whose macros name it; hence no namespace.
[[noreturn]] VEXA_API void ___Coredump_due_to_assertion_failure___(const char* expression, const char* filePath,
                                                                   int line, const char* function);

namespace vexa {

/// Support that the library shares with the applications that use it.
///
/// All functions of this header may be called from any thread; a CTimer belongs to one thread.
namespace helper {

/// Writes one printf-style line to standard output, or hands it to the handler that SetLogHandler has set: at most 2046
/// characters (the rest is cut); to standard output with a newline and a flush.
/// Nothing is put before the text. A null format writes nothing; one that would store through an argument, by "%n", is
/// refused and gives an empty line. Numbers are formatted independently of the locale.
/// Lines of several threads interleave only at their ends.
VEXA_API void LogWarning(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// The same as LogWarning. Every failure that the library itself reports goes through this function.
VEXA_API void LogError(const char* format, ...) __attribute__((format(printf, 1, 2)));

enum class LogLevel : unsigned char { WARNING, ERROR };

/// Takes a line of LogWarning or LogError. \p text has no newline, and is gone when the handler returns.
using LogHandler = void (*)(LogLevel level, std::string_view text);

/// Lets \p handler take every line from now on, those of the library itself among them, on whichever thread it is
/// logged; null gives them to standard output again, as at first. The handler is called without a lock, on several
/// threads at once if they log at once, also where the caller holds the process-wide lock. What it logs itself goes to
/// standard output, and so does the line when it throws; the exception goes no further.
/// \return the handler until now, which another thread may still be in.
VEXA_API LogHandler SetLogHandler(LogHandler handler) noexcept;

/// Takes the process-wide recursive lock that guards the one-time creation of descriptors. A thread that holds it may
/// take it again, and releases it as often as it took it.
VEXA_API void Acquire_Recursive_Thread_Mutex();

/// Releases the process-wide lock once. Only the thread that holds it may call this.
VEXA_API void Release_Recursive_Thread_Mutex();

/// Holds the process-wide lock for the length of a scope, also when an exception leaves the scope.
class CLockGuard {
public:
    CLockGuard() { Acquire_Recursive_Thread_Mutex(); }
    ~CLockGuard() { Release_Recursive_Thread_Mutex(); }

    CLockGuard(const CLockGuard&) = delete;
    CLockGuard& operator=(const CLockGuard&) = delete;
};

/// A stopwatch on the wall clock, for coarse timing. It runs from its construction; a clock that is set while it runs
/// shows in the readings, negative ones included. The fields are what the C library's `timeval` gives.
class VEXA_API CTimer {
public:
    long StartSec;  ///< start time: seconds since 1970-01-01 00:00:00 UTC
    long StartUsec; ///< start time: microseconds within the second
    long StopSec;   ///< stop time: seconds
    long StopUsec;  ///< stop time: microseconds within the second

    /// Starts the stopwatch.
    CTimer();

    /// Takes the present time as both the start and the stop time.
    void Start();

    /// Takes the present time as the stop time. The stopwatch can be stopped again later, from the same start.
    void Stop();

    /// Stop minus start in microseconds. Changes neither.
    long GetElapseUs() const;

    /// Stop minus start in milliseconds; each time is cut to whole milliseconds before the subtraction. Changes
    /// neither.
    long GetElapseMs() const;

    /// A lap reading in microseconds: stops, reads and starts again.
    long ReadElapseUs();

    /// A lap reading in milliseconds: stops, reads and starts again.
    long ReadElapseMs();

    /// Stops, prints the label and the elapsed milliseconds to standard output as "%s \tmsec:%d\n", and starts again.
    /// The milliseconds are cut to 32 bits; a null label prints as "(null)".
    void PrintElapseMs(const char* label);

    /// The same as PrintElapseMs: this, too, prints milliseconds.
    void PrintElapseUs(const char* label);
};

static_assert(sizeof(CTimer) == 32, "applications compile the size of a CTimer in");

/// Writes `s`, escaped for JSON and without quotes, into `buf` at `pos`, and advances `pos` by the escaped length.
///
/// The quotation mark, the backslash, the slash, backspace, form feed, line feed, carriage return and tab become a
/// backslash and one character; every other byte outside 0x20 to 0x7E becomes a backslash, u00 and two lower-case
/// hexadecimal digits, so that each byte of a multi-byte character is
/// escaped by itself. `cap` is the size of the whole buffer in bytes. A piece (a run of plain bytes, or one escape
/// sequence) that does not fit between `pos` and `cap` is not written, and `pos` advances all the same; a position
/// beyond `cap` is no room at all. No terminating zero is written.
VEXA_API void SetStringWithEscape(char* buf, unsigned long& pos, unsigned long cap, const std::string& s);

/// Appends `s` to `out`, escaped like SetStringWithEscape does it. Throws std::length_error when the result would be
/// longer than a string can be; `out` then ends with what had been escaped so far.
VEXA_API void AppendStringWithEscape(std::string& out, const std::string& s);

} // namespace helper
} // namespace vexa

#endif
