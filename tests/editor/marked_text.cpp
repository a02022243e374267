#include "marked_text.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <map>

namespace {

const std::map<QString, std::pair<int, QString>> NamedKeys = {
    {"Enter", {Qt::Key_Return, "\r"}},
    {"Backspace", {Qt::Key_Backspace, "\b"}},
    {"Tab", {Qt::Key_Tab, "\t"}},
    {"Delete", {Qt::Key_Delete, "\x7F"}},
    {"Space", {Qt::Key_Space, " "}},
    {"Escape", {Qt::Key_Escape, "\x1B"}},
    {"Left", {Qt::Key_Left, {}}},
    {"Right", {Qt::Key_Right, {}}},
    {"Up", {Qt::Key_Up, {}}},
    {"Down", {Qt::Key_Down, {}}},
    {"Home", {Qt::Key_Home, {}}},
    {"End", {Qt::Key_End, {}}},
    {"PgUp", {Qt::Key_PageUp, {}}},
    {"PgDn", {Qt::Key_PageDown, {}}},
    {"Insert", {Qt::Key_Insert, {}}},
    {"F3", {Qt::Key_F3, {}}},
    {"F11", {Qt::Key_F11, {}}},
    {"F10", {Qt::Key_F10, {}}},
    {"Backtab", {Qt::Key_Backtab, "\t"}},
    {"F2", {Qt::Key_F2, {}}},
    {"F8", {Qt::Key_F8, {}}},
};

void SendMouse(TZtCodeEdit &AEdit, QEvent::Type AType, QPoint AAt, Qt::MouseButton AButton,
               Qt::KeyboardModifiers AModifiers)
{
    QMouseEvent event(AType, AAt, AEdit.mapToGlobal(QPointF(AAt)),
                      AType == QEvent::MouseMove ? Qt::NoButton : AButton,
                      AType == QEvent::MouseButtonRelease ? Qt::NoButton : AButton, AModifiers);
    QCoreApplication::sendEvent(&AEdit, &event);
}

void Point(QPointer<TZtCodeEdit> AEdit, const QString &AWhat, const QString &ACell,
           Qt::KeyboardModifiers AModifiers)
{
    using enum QEvent::Type;
    const int cell = AEdit->GetCharWidth(), pitch = AEdit->GetLineWidth();
    const QPoint at(AEdit->RealGuttorWidth() + ACell.section(u',', 0, 0).toInt() * cell + cell / 2,
                    ACell.section(u',', 1).toInt() * pitch + pitch / 2);
    static const std::map<QString, QList<QEvent::Type>> gestures = {
        {"press", {MouseButtonPress}},
        {"move", {MouseMove}},
        {"release", {MouseButtonRelease}},
        {"click", {MouseButtonPress, MouseButtonRelease}},
        {"right", {MouseButtonPress}},
        {"double", {MouseButtonPress, MouseButtonRelease, MouseButtonDblClick, MouseButtonRelease}},
        {"triple",
         {MouseButtonPress, MouseButtonRelease, MouseButtonDblClick, MouseButtonRelease,
          MouseButtonPress, MouseButtonRelease}}};
    for (const QEvent::Type type : gestures.at(AWhat))
        if (AEdit)
            SendMouse(*AEdit, type, at, AWhat == "right" ? Qt::RightButton : Qt::LeftButton,
                      AModifiers);
}

void Wheel(TZtCodeEdit *AEdit, int ADelta, Qt::KeyboardModifiers AModifiers)
{
    QWheelEvent event(QPointF(50, 50), AEdit->mapToGlobal(QPointF(50, 50)), {}, {0, ADelta}, {},
                      AModifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(AEdit, &event);
}

void Key(TZtCodeEdit *AEdit, const QString &AName, Qt::KeyboardModifiers AModifiers)
{
    const auto named = NamedKeys.find(AName);
    const int code = AName.size() == 1 ? AName[0].toUpper().unicode() : 0;
    const auto &[key, text] = named == NamedKeys.end() ? std::pair(code, AName) : named->second;
    QKeyEvent event(QEvent::KeyPress, key, AModifiers, text);
    QCoreApplication::sendEvent(AEdit, &event);
}

void DoOne(QPointer<TZtCodeEdit> AEdit, const QString &AWord, Qt::KeyboardModifiers AModifiers)
{
    if (AWord.startsWith(u'#') && AWord.size() > 1)
        ZtPostMessage(AEdit, AWord.mid(1).toUInt());
    else if (AWord.startsWith(u"insert:"))
        AEdit->InsertText(TZtChangeType::ctPaste, AWord.mid(7));
    else if (AWord.startsWith(u"wheel"))
        Wheel(AEdit, AWord.mid(5).toInt(), AModifiers);
    else if (AWord == u"read-only")
        AEdit->SetReadOnly(true);
    else if (AWord == u"paint")
        AEdit->grab();
    else if (AWord.contains(u'@') && AWord.size() > 1)
        Point(AEdit, AWord.section(u'@', 0, 0), AWord.section(u'@', 1), AModifiers);
    else
        Key(AEdit, AWord, AModifiers);
    if (AEdit)
        QCoreApplication::sendPostedEvents(AEdit);
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
    // Searching is not this fixture's business.
    return message->Msg == 1026 || message->Msg == 1027;
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
    for (const QString &line : AText.split(u'\n')) {
        QString plain;
        int column = 0;
        for (const QChar c : line) {
            const QPoint here(column, lines.GetCount());
            if (c == u'|' || c == u'[')
                anchor = here;
            if (c == u'|' || c == u']')
                end = here;
            column += c == u'~';
            if (!QStringLiteral("|[]~").contains(c))
                plain += c, ++column;
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

QString TMarkedEditor::Marked() const
{
    const QPoint anchor = Edit.GetSelEnd(), end = Edit.GetSelStart();
    QStringList lines = Lines();
    if (lines.isEmpty())
        return QStringLiteral("-");
    const auto put = [&lines](QPoint at, QChar mark) {
        QString &line = lines[at.y()];
        line = line.leftJustified(at.x(), u'~').insert(at.x(), mark);
    };
    const bool anchorFirst = std::pair(anchor.y(), anchor.x()) < std::pair(end.y(), end.x());
    if (anchor == end) {
        put(end, u'|');
    } else { // the later one first, so that the other's column holds
        put(anchorFirst ? end : anchor, anchorFirst ? u']' : u'[');
        put(anchorFirst ? anchor : end, anchorFirst ? u'[' : u']');
    }
    return lines.join(u'\n');
}

void DoInEditor(QPointer<TZtCodeEdit> AEdit, const QString &AWords)
{
    for (QString word : AWords.split(u' ', Qt::SkipEmptyParts)) {
        Qt::KeyboardModifiers modifiers;
        for (const auto &[name, modifier] :
             {std::pair("Ctrl+", Qt::ControlModifier), std::pair("Shift+", Qt::ShiftModifier)}) {
            if (!word.startsWith(QLatin1StringView(name)))
                continue;
            modifiers |= modifier;
            word.remove(0, qstrlen(name));
        }
        const qsizetype star = word.startsWith(u"insert:") ? -1 : word.lastIndexOf(u'*');
        const int times = star > 0 ? word.sliced(star + 1).toInt() : 1;
        if (star > 0)
            word.truncate(star);
        for (int i = 0; i < times && AEdit; ++i)
            DoOne(AEdit, word, modifiers);
    }
}
