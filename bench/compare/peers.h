#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

enum class TLanguage { JavaScript, Xml, Sql };

/// An editor widget under measurement. All of them are driven by the same tasks.
class TPeer {
public:
    virtual ~TPeer() = default;
    virtual QWidget *Widget() = 0;
    /// The widget that takes key events.
    virtual QWidget *KeyTarget() { return Widget(); }
    virtual void SetLanguage(TLanguage ALanguage) = 0;
    virtual void LoadFile(const QString &AFileName) = 0;
    virtual int LineCount() = 0;
    virtual void MoveTo(int ALine, int AColumn) = 0;
    /// Selects the next occurrence from the start of the text; whether there is one.
    virtual bool Find(const QString &S, bool ACase, bool AWholeWords) = 0;
    /// Replaces every occurrence through the widget's own find-and-replace steps, undo on. Returns
    /// how many it did; one that takes too long may stop early.
    virtual int ReplaceAll(const QString &S, const QString &AWith) = 0;
    virtual void Paste() = 0;
    /// Colours the whole text once; false when it cannot be told to.
    virtual bool ColourAll() = 0;
    virtual void RepaintUnchanged() = 0;
    /// Marks the text with 100,000 diagnostics and marks on 10,000 lines; asked of own kinds alone.
    virtual void MarkLines() {}
};

/// The table that an editor stands in: as it is, or with what surrounds a text switched on.
enum class TSet { Bare, Complete };

struct TPeerKind {
    const char *Name;
    TSet Set;
    bool Own; ///< this project's control
    std::function<std::unique_ptr<TPeer>()> Create;
};

/// The editors that were built in. The last one of a set's own is what its peers are compared with.
const std::vector<TPeerKind> &Peers();
