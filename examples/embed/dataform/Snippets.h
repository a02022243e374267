#pragma once

#include <QSqlDatabase>

/// A database in memory, with a table "snippets" of texts in several languages. Raises
/// `EDatabaseError` when it cannot be made.
QSqlDatabase MakeSnippets();
