#pragma once

#include "uZtExport.h"

#include <QEvent>
#include <QtGlobal>

class QWidget;

/// The messages that can be posted to a control from outside.
enum class TZtMsg : quint32 {
    wmEraseBkgnd = 20,  ///< answered with 1: the background is taken care of
    wmGetDlgCode = 135, ///< answered with the kinds of keys that are wanted
    wmChar = 258,       ///< `TCustomControl::WMChar`
    wmMouseWheel = 522, ///< a notch, whose direction is the sign of the high word of `WParam`
    wmCut = 768,        ///< the selected text goes to the clipboard
    wmCopy = 769,       ///< the selected text is copied
    wmPaste = 770,      ///< the clipboard's text replaces the selection
    wmUndo = 772,       ///< takes the last change back
    wmUser = 1024,      ///< the first of a control's own
};

/// A message on its way to a control.
class ZT_EDITOR_EXPORT TZtMessage : public QEvent {
public:
    /// As `ZtPostMessage` makes it.
    TZtMessage(quint32 AMsg, quint64 AWParam, qint64 ALParam)
        : QEvent(EventType()), Msg(AMsg), WParam(AWParam), LParam(ALParam)
    {
    }
    static QEvent::Type EventType(); ///< of all messages

    quint32 Msg;       ///< which one it is: a `TZtMsg` or a host's own
    quint64 WParam;    ///< as the message says
    qint64 LParam;     ///< as the message says
    qint64 Result = 0; ///< what `ZtSendMessage` answers
};

/// Puts a message into the event queue of `AControl`; it is handled after the current event.
ZT_EDITOR_EXPORT void ZtPostMessage(QWidget *AControl, quint32 AMsg, quint64 AWParam = 0,
                                    qint64 ALParam = 0);
/// Delivers a message at once and returns its result.
ZT_EDITOR_EXPORT qint64 ZtSendMessage(QWidget *AControl, quint32 AMsg, quint64 AWParam = 0,
                                      qint64 ALParam = 0);

/// Of a named message.
inline void ZtPostMessage(QWidget *AControl, TZtMsg AMsg, quint64 AWParam = 0, qint64 ALParam = 0)
{
    ZtPostMessage(AControl, quint32(AMsg), AWParam, ALParam);
}
/// Of a named message.
inline qint64 ZtSendMessage(QWidget *AControl, TZtMsg AMsg, quint64 AWParam = 0, qint64 ALParam = 0)
{
    return ZtSendMessage(AControl, quint32(AMsg), AWParam, ALParam);
}
