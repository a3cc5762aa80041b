#ifndef VEXA_EXPORT_H
#define VEXA_EXPORT_H

/// Marks what the shared library exports. The library hides every other symbol, so that what an application can link
/// to is exactly what these headers declare. An application sees default visibility too: type slots that the
/// description templates create in several shared objects are then one and the same.
#define VEXA_API __attribute__((visibility("default")))

#endif
