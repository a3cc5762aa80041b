#ifndef VEXA_TESTS_SUPPORT_TEXT_LINKS_H
#define VEXA_TESTS_SUPPORT_TEXT_LINKS_H

#include <cstddef>
#include <vector>

#include <vexa/describe.h>

/// Objects that point to each other, to any depth and in circles. Nobody owns what a link points to, so that no depth
/// is too deep for a destructor.

namespace vexa_test {

struct Link {
    int value = 0;
    const Link* next = nullptr;
};

VEXA_DESCRIBE(Link, value, next)

/// A list of so many links, numbered from 1; the first one leads to all others.
inline std::vector<Link> LinkedList(std::size_t length)
{
    std::vector<Link> links(length);
    for (std::size_t i = 0; i < length; ++i) {
        links[i].value = static_cast<int>(i + 1);
        links[i].next = i + 1 < length ? &links[i + 1] : nullptr;
    }
    return links;
}

} // namespace vexa_test

#endif
