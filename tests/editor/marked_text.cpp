#include "marked_text.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <map>

namespace {

struct TNamedKey {
    int Key;
    QString Text;
};

const std::map<QString, TNamedKey> &NamedKeys()
{
    static const std::map<QString, TNamedKey> keys = {
        {"Enter", {Qt::Key_Return, "\r"}}, {"Backspace", {Qt::Key_Backspace, "\b"}},
        {"Tab", {Qt::Key_Tab, "\t"}},      {"Delete", {Qt::Key_Delete, "\x7F"}},
        {"Space", {Qt::Key_Space, " "}},   {"Escape", {Qt::Key_Escape, "\x1B"}},
        {"Left", {Qt::Key_Left, {}}},      {"Right", {Qt::Key_Right, {}}},
        {"Up", {Qt::Key_Up, {}}},          {"Down", {Qt::Key_Down, {}}},
        {"Home", {Qt::Key_Home, {}}},      {"End", {Qt::Key_End, {}}},
        {"PgUp", {Qt::Key_PageUp, {}}},    {"PgDn", {Qt::Key_PageDown, {}}},
        {"Insert", {Qt::Key_Insert, {}}},  {"F3", {Qt::Key_F3, {}}},
        {"F11", {Qt::Key_F11, {}}},
    };
    return keys;
}

} // namespace

TMarkedEditor::TMarkedEditor()
{
    TZtPlatform &platform = ZtPlatform();
    platform.ClipboardText = [this] { return Clipboard; };
    platform.SetClipboardText = [this](const QString &S) { Clipboard = S; };
    platform.ShowException = [this](const QString &S) { Errors += S; };
    Edit.resize(400, 220);
    Edit.show();
    QApplication::setActiveWindow(&Edit);
    Edit.setFocus();
    QCoreApplication::processEvents();
    for (TScrollBar *bar : Edit.findChildren<TScrollBar *>())
        (bar->orientation() == Qt::Horizontal ? H : V) = bar;
    Edit.SetOnChange([this](QObject *) { ++Changes, Events += u'C'; });
    Edit.SetOnCursorChange([this](QObject *) { ++CursorMoves, Events += u'M'; });
    QObject::connect(&Edit, &TZtCodeEdit::textChanged, this, [this] { Events += u'L'; });
    Edit.installEventFilter(this);
}

TMarkedEditor::~TMarkedEditor() { ZtPlatform() = ZtDefaultPlatform(); }

bool TMarkedEditor::eventFilter(QObject *, QEvent *AEvent)
{
    if (AEvent->type() != TZtMessage::EventType())
        return false;
    const auto *message = static_cast<TZtMessage *>(AEvent);
    Posted += QStringLiteral("%1:%2").arg(message->Msg).arg(message->WParam);
    return message->Msg > 1025; // searching is not this fixture's business
}

QStringList TMarkedEditor::Lines() const
{
    QStringList lines;
    for (int i = 0; i < Edit.GetLines()->GetCount(); ++i)
        lines += Edit.GetLines()->GetStrings(i);
    return lines;
}

void TMarkedEditor::SetMarked(const QString &AText)
{
    TStringList lines;
    QPoint anchor, end;
    for (QString line : AText.split(u'\n')) {
        QString plain;
        int column = 0;
        for (const QChar c : line) {
            const QPoint here(column, lines.GetCount());
            if (c == u'|')
                anchor = end = here;
            else if (c == u'[')
                anchor = here;
            else if (c == u']')
                end = here;
            else
                ++column;
            if (!QStringLiteral("|[]~").contains(c))
                plain += c;
        }
        if (AText != QStringLiteral("-"))
            lines.Add(plain);
    }
    Edit.SetLines(&lines);
    Edit.SetLinePos(end.y());
    Edit.SetCharPos(end.x());
    Edit.SetSelEnd(anchor);
    Changes = CursorMoves = 0;
    Events.clear();
    Posted.clear();
}

QString TMarkedEditor::Mark(QPoint AAnchor, QPoint AEnd) const
{
    QStringList lines = Lines();
    if (lines.isEmpty())
        return QStringLiteral("-");
    const auto put = [&lines](QPoint at, QChar mark) {
        QString &line = lines[at.y()];
        while (line.size() < at.x())
            line += u'~';
        line.insert(at.x(), mark);
    };
    const bool anchorFirst =
        AAnchor.y() < AEnd.y() || (AAnchor.y() == AEnd.y() && AAnchor.x() < AEnd.x());
    if (AAnchor == AEnd) {
        put(AEnd, u'|');
    } else { // the later one first, so that the other's column holds
        put(anchorFirst ? AEnd : AAnchor, anchorFirst ? u']' : u'[');
        put(anchorFirst ? AAnchor : AEnd, anchorFirst ? u'[' : u']');
    }
    return lines.join(u'\n');
}

QString TMarkedEditor::Marked() const { return Mark(Edit.GetSelEnd(), Edit.GetSelStart()); }

QString TMarkedEditor::MarkedCaret() const
{
    const QPoint caret(Edit.GetCharPos(), Edit.GetLinePos());
    return Mark(caret, caret);
}

void TMarkedEditor::Press(int AKey, Qt::KeyboardModifiers AModifiers, const QString &AText)
{
    QKeyEvent event(QEvent::KeyPress, AKey, AModifiers, AText);
    QCoreApplication::sendEvent(&Edit, &event);
    QCoreApplication::sendPostedEvents(&Edit);
}

void TMarkedEditor::Keys(const QString &AKeys)
{
    for (QString key : AKeys.split(u' ', Qt::SkipEmptyParts)) {
        Qt::KeyboardModifiers modifiers;
        const auto take = [&](QLatin1StringView name, Qt::KeyboardModifier modifier) {
            if (!key.startsWith(name))
                return;
            modifiers |= modifier;
            key.remove(0, name.size());
        };
        take(QLatin1StringView("Ctrl+"), Qt::ControlModifier);
        take(QLatin1StringView("Shift+"), Qt::ShiftModifier);
        const qsizetype star = key.lastIndexOf(u'*');
        const int times = star > 0 ? key.mid(star + 1).toInt() : 1;
        if (star > 0)
            key.truncate(star);
        for (int i = 0; i < times; ++i) {
            const auto named = NamedKeys().find(key);
            if (key.startsWith(u'#') && key.size() > 1)
                Send(key.mid(1).toUInt());
            else if (named != NamedKeys().end())
                Press(named->second.Key, modifiers, named->second.Text);
            else
                Press(key.size() == 1 ? key[0].toUpper().unicode() : 0, modifiers, key);
        }
    }
}

void TMarkedEditor::Send(quint32 AMsg, quint64 AWParam)
{
    ZtPostMessage(&Edit, AMsg, AWParam);
    QCoreApplication::sendPostedEvents(&Edit);
}

void TMarkedEditor::Mouse(QEvent::Type AType, QPoint AAt, Qt::MouseButton AButton,
                          Qt::KeyboardModifiers AModifiers)
{
    const bool move = AType == QEvent::MouseMove;
    QMouseEvent event(AType, AAt, Edit.mapToGlobal(QPointF(AAt)), move ? Qt::NoButton : AButton,
                      AType == QEvent::MouseButtonRelease ? Qt::NoButton : AButton, AModifiers);
    QCoreApplication::sendEvent(&Edit, &event);
    QCoreApplication::sendPostedEvents(&Edit);
}

void TMarkedEditor::Wheel(int ADelta)
{
    QWheelEvent event(QPointF(50, 50), Edit.mapToGlobal(QPointF(50, 50)), {}, {0, ADelta}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Edit, &event);
}

QPoint TMarkedEditor::Cell(int AColumn, int ALine)
{
    return {Edit.RealGuttorWidth() + AColumn * Edit.GetCharWidth() + Edit.GetCharWidth() / 2,
            ALine * Edit.GetLineWidth() + Edit.GetLineWidth() / 2};
}
