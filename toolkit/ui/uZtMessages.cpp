#include "uZtMessages.h"

#include <QCoreApplication>
#include <QWidget>

QEvent::Type TZtMessage::EventType()
{
    static const int type = QEvent::registerEventType();
    return QEvent::Type(type);
}

void ZtPostMessage(QWidget *AControl, quint32 AMsg, quint64 AWParam, qint64 ALParam)
{
    QCoreApplication::postEvent(AControl, new TZtMessage(AMsg, AWParam, ALParam));
}

qint64 ZtSendMessage(QWidget *AControl, quint32 AMsg, quint64 AWParam, qint64 ALParam)
{
    TZtMessage message(AMsg, AWParam, ALParam);
    QCoreApplication::sendEvent(AControl, &message);
    return message.Result;
}
