#pragma once

/// Marks a class, function or global object that the shared library shows. All else in it is hidden: what is not marked can be
/// used inside the library only. A plug-in module shares classes with the program through what is marked, `dynamic_cast` included.
#if defined(__GNUC__)
#define PLIX_EXPORT __attribute__((visibility("default")))
#else
#define PLIX_EXPORT
#endif
