#pragma once

#include "uZtExport.h"
#include "uZtKeys.h"

#include <QString>

#include <exception>
#include <functional>
#include <memory>

class QAccessibleEvent;
class QDrag;
class QMimeData;

/// What a message box answers.
enum TZtMsgBoxResult : int { mrOk = 1, mrCancel = 2, mrYes = 6, mrNo = 7 };

/// The services of the desktop that a test or an unusual host may stand in for. Each member is one
/// replaceable function; assigning an empty one is a fault.
struct TZtPlatform {
    /// The modifier keys that are down now.
    std::function<TShiftState()> KeyboardShift;
    /// The clipboard as plain text, CR LF at each of its line breaks, whatever the program that put
    /// it there uses.
    std::function<QString()> ClipboardText;
    /// Whether there is text on the clipboard, which is not fetched to find out.
    std::function<bool()> HasClipboardText;
    /// Puts text on the clipboard; the desktop's programs get their own line breaks.
    std::function<void(const QString &)> SetClipboardText;
    /// Whether the desktop has a primary selection: what was selected last, which the mouse's
    /// middle button inserts.
    std::function<bool()> HasPrimary;
    /// The primary selection as plain text, CR LF at each of its line breaks.
    std::function<QString()> PrimaryText;
    /// Makes data the primary selection, which owns them then; null: there is none.
    std::function<void(QMimeData *)> SetPrimary;
    /// Runs a drag until the button goes up. Answers what the target did; Qt deletes the drag.
    std::function<Qt::DropAction(QDrag *, Qt::DropActions)> RunDrag;
    /// Puts a text on the clipboard in several forms, for the same programs; its plain text gets
    /// their line breaks.
    std::function<void(std::unique_ptr<QMimeData>)> SetClipboardData;
    /// Lines that one notch of the wheel scrolls; may be less than 1.
    std::function<int()> WheelLines;
    /// `ZtMsgBoxInfo`.
    std::function<void(const QString &AText, const QString &ACaption)> MsgBoxInfo;
    /// `ZtMsgBoxError`.
    std::function<void(const QString &AText, const QString &ACaption)> MsgBoxError;
    /// `ZtMsgBoxYesNo`: 6 is Yes, any other value counts as No.
    std::function<int(const QString &AText, const QString &ACaption)> MsgBoxYesNo;
    /// `ZtMsgBoxConfirm`: as `ZtMsgBoxYesNo`, with No as what Enter answers.
    std::function<int(const QString &AText, const QString &ACaption)> MsgBoxConfirm;
    /// `ZtMsgBoxYesNoCancel`: 6 is Yes, 2 is Cancel, any other value counts as No.
    std::function<int(const QString &AText, const QString &ACaption)> MsgBoxYesNoCancel;
    /// Reports what was raised inside an event; the silent abort does not get here.
    std::function<void(const QString &AMessage)> ShowException;
    /// Whether an assistive tool, a screen reader for instance, wants to be told what happens.
    std::function<bool()> IsAssisted;
    /// Tells such tools.
    std::function<void(QAccessibleEvent &)> TellAssistants;
};

/// The services in use.
ZT_EDITOR_EXPORT TZtPlatform &ZtPlatform();
/// The services as they are without a replacement.
ZT_EDITOR_EXPORT TZtPlatform ZtDefaultPlatform();

/// The line break of the desktop's programs.
ZT_EDITOR_EXPORT QLatin1StringView ZtDesktopBreak();
/// A text with that at each of its line breaks: CR LF, CR and LF are one each.
ZT_EDITOR_EXPORT QString ZtToDesktop(const QString &AText);
/// A text of another program with CR LF at each of its line breaks: CR LF, CR and LF are one each.
ZT_EDITOR_EXPORT QString ZtFromDesktop(const QString &AText);

/// A modal notice with OK. An empty caption means the application's name.
inline void ZtMsgBoxInfo(const QString &AText, const QString &ACaption)
{
    ZtPlatform().MsgBoxInfo(AText, ACaption);
}
/// A modal notice of something that went wrong, with OK.
inline void ZtMsgBoxError(const QString &AText, const QString &ACaption)
{
    ZtPlatform().MsgBoxError(AText, ACaption);
}
/// A modal question before something is lost for good: as `ZtMsgBoxYesNo`, with No as what Enter
/// answers.
inline int ZtMsgBoxConfirm(const QString &AText, const QString &ACaption)
{
    return ZtPlatform().MsgBoxConfirm(AText, ACaption);
}
/// A modal question; 6 is Yes, any other value counts as No.
inline int ZtMsgBoxYesNo(const QString &AText, const QString &ACaption)
{
    return ZtPlatform().MsgBoxYesNo(AText, ACaption);
}
/// A modal question; 6 is Yes, 2 is Cancel, any other value counts as No.
inline int ZtMsgBoxYesNoCancel(const QString &AText, const QString &ACaption)
{
    return ZtPlatform().MsgBoxYesNoCancel(AText, ACaption);
}

/// The words of what is handled now by a `catch` block, for a user; empty for the silent abort.
ZT_EDITOR_EXPORT QString ZtCurrentExceptionMessage();

/// Reports an exception that reached a control's event boundary. The silent abort says nothing.
ZT_EDITOR_EXPORT void ZtHandleException(std::exception_ptr AException);

/// While it lives, `KeyboardShift` answers with the state that came with the event being handled.
class ZT_EDITOR_EXPORT TZtEventShift {
public:
    /// Those of the event that is being handled.
    explicit TZtEventShift(Qt::KeyboardModifiers AModifiers);
    ~TZtEventShift();
    TZtEventShift(const TZtEventShift &) = delete;
    TZtEventShift &operator=(const TZtEventShift &) = delete;

private:
    const Qt::KeyboardModifiers *FOuter;
    Qt::KeyboardModifiers FModifiers;
};
