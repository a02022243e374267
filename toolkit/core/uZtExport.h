#pragma once

// What of a declaration is seen outside of its library. Each of the three libraries has a macro of
// its own, for it is built from its own sources and used by those of the libraries above it. With
// static libraries (`ZT_STATIC`) there is nothing to be seen.

/// \cond the two of which the macros below choose one
#if defined(ZT_STATIC)
#define ZT_EXPORTED
#define ZT_IMPORTED
#elif defined(_WIN32) || defined(__CYGWIN__)
#define ZT_EXPORTED __declspec(dllexport)
#define ZT_IMPORTED __declspec(dllimport)
#else
#define ZT_EXPORTED __attribute__((visibility("default")))
#define ZT_IMPORTED __attribute__((visibility("default")))
#endif
/// \endcond

/// Texts, lexers and colour schemes (`ZtCodeEditor::Parsers`).
#if defined(ZT_BUILDS_PARSERS)
#define ZT_PARSERS_EXPORT ZT_EXPORTED
#else
#define ZT_PARSERS_EXPORT ZT_IMPORTED
#endif

/// The editor and what works on its text (`ZtCodeEditor::Editor`).
#if defined(ZT_BUILDS_EDITOR)
#define ZT_EDITOR_EXPORT ZT_EXPORTED
#else
#define ZT_EDITOR_EXPORT ZT_IMPORTED
#endif

/// The data-aware editor, its datasets, and the package (`ZtCodeEditor::DbEditor`).
#if defined(ZT_BUILDS_DBEDITOR)
#define ZT_DBEDITOR_EXPORT ZT_EXPORTED
#else
#define ZT_DBEDITOR_EXPORT ZT_IMPORTED
#endif
