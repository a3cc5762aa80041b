// expect: a check is a function, or a lambda without captures, of a const reference to the class that gives a text or a bool
#include <vexa/vexa.h>

struct Range {
    int low = 0;
};
VEXA_DESCRIBE_CLASS(Range)
{
    const int least = 1;
    about.Check([&least](const Range& range) { return range.low >= least; }, "too low");
}
