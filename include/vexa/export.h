#ifndef VEXA_EXPORT_H
#define VEXA_EXPORT_H

/// Marks what the shared library exports. The library hides every other symbol, so that what an application can link
/// to is exactly what these headers declare. In an application it keeps the library's classes visible, so that
/// exceptions and type information of them are one and the same everywhere. What the description templates create is as
/// visible as the described types are: with -fvisibility=hidden, or for a type of hidden visibility, every shared
/// object that describes the type has a descriptor of its own.
#define VEXA_API __attribute__((visibility("default")))

/// Marks what must be inlined for an object of its class to live in registers: a call would take the object's address.
#define VEXA_INLINE __attribute__((always_inline)) inline

#endif
