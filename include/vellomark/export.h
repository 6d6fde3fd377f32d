#ifndef VELLOMARK_EXPORT_H
#define VELLOMARK_EXPORT_H

/// Marks what the shared library exports. Everything else is hidden.
#if defined(_WIN32)
#if defined(VELLOMARK_BUILDING)
#define VELLOMARK_API __declspec(dllexport)
#else
#define VELLOMARK_API __declspec(dllimport)
#endif
#else
#define VELLOMARK_API __attribute__((visibility("default")))
#endif

#endif
