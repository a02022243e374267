#pragma once

#include "uZtAccessibleText.h"

#include <QAccessibleWidget>

#include <functional>

/// An editor for assistive tools: what it is, its text, its caret and selection, where its
/// characters stand and how they look, and the edits that a tool makes for its user.
///
/// Such an edit is one of the editor's own: it can be undone, fires what a typed one fires, and
/// does nothing in an editor that is read-only. What an edit raises goes to `ZtHandleException`.
/// Offsets are those of `TZtAccessibleText`; -1 stands for the text's end, -2 for the caret.
class TZtAccessibleEdit final : public QAccessibleWidget,
                                public QAccessibleTextInterface,
                                public QAccessibleEditableTextInterface {
    Q_DECLARE_TR_FUNCTIONS(TZtAccessibleEdit)

public:
    /// How much of the text is given at once, in UTF-16 units: whoever wants more asks for the
    /// rest. A message between programs could hold a few times as much.
    static constexpr int MostText = 1 << 24;

    explicit TZtAccessibleEdit(TZtCodeEdit &AEdit);
    /// A factory for `QAccessible::installFactory`.
    static QAccessibleInterface *Create(const QString &AClass, QObject *AObject);

    // --- object
    QString text(QAccessible::Text AText) const override;
    /// The value is the text; anything else cannot be set.
    void setText(QAccessible::Text AText, const QString &S) override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType AType) override;

    // --- text
    int characterCount() const override { return FText.GetCount(); }
    QString text(int AStart, int AEnd) const override;
    QString textBeforeOffset(int AOffset, QAccessible::TextBoundaryType AType, int *AStart,
                             int *AEnd) const override;
    /// A line is given with its break, and so is a paragraph, which is a line. A break is a word of
    /// its own.
    QString textAtOffset(int AOffset, QAccessible::TextBoundaryType AType, int *AStart,
                         int *AEnd) const override;
    QString textAfterOffset(int AOffset, QAccessible::TextBoundaryType AType, int *AStart,
                            int *AEnd) const override;
    /// Colours and styles, and `invalid:true` where a compiler, say, has found something.
    QString attributes(int AOffset, int *AStart, int *AEnd) const override;
    int cursorPosition() const override { return FText.GetCaret(); }
    void setCursorPosition(int APosition) override;
    QRect characterRect(int AOffset) const override;
    /// -1 where there is no text at a point of the screen.
    int offsetAtPoint(const QPoint &APoint) const override;
    void scrollToSubstring(int AStart, int AEnd) override;

    // --- the selection, of which there is at most one
    int selectionCount() const override;
    void selection(int AIndex, int *AStart, int *AEnd) const override;
    void addSelection(int AStart, int AEnd) override { setSelection(0, AStart, AEnd); }
    void removeSelection(int AIndex) override;
    void setSelection(int AIndex, int AStart, int AEnd) override;

    // --- edits
    void insertText(int AOffset, const QString &S) override { replaceText(AOffset, AOffset, S); }
    void deleteText(int AStart, int AEnd) override { replaceText(AStart, AEnd, QString()); }
    void replaceText(int AStart, int AEnd, const QString &S) override;

private:
    using TStretch = std::pair<int, int>;

    TZtCodeEdit &Edit() const;
    int OffsetGiven(int AOffset) const;
    TStretch StretchAt(int AOffset, QAccessible::TextBoundaryType AType) const;
    QString Give(const TStretch &AStretch, int *AStart, int *AEnd) const;
    void Guarded(const std::function<void(TZtCodeEdit &)> &AStep) const;
    static void PutCaret(TZtCodeEdit &AEdit, const QPoint &APlace);

    mutable TZtAccessibleText FText; // which listens to another text when the editor shows one
};
