#include "uZtPlatform.h"

#include "uZtException.h"

#include <QApplication>
#include <QClipboard>
#include <QMessageBox>

namespace {

const Qt::KeyboardModifiers *EventModifiers = nullptr;

int AskUser(const QString &AText, const QString &ACaption, QMessageBox::Icon AIcon,
            QMessageBox::StandardButtons AButtons)
{
    QMessageBox box(AIcon, ACaption.isEmpty() ? QApplication::applicationDisplayName() : ACaption,
                    AText, AButtons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return mrYes;
    case QMessageBox::No:
        return mrNo;
    case QMessageBox::Ok:
        return mrOk;
    default:
        return mrCancel;
    }
}

} // namespace

TZtPlatform ZtDefaultPlatform()
{
    TZtPlatform platform;
    platform.KeyboardShift = [] {
        return ZtShiftState(EventModifiers ? *EventModifiers
                                           : QGuiApplication::keyboardModifiers());
    };
    platform.ClipboardText = [] { return QGuiApplication::clipboard()->text(); };
    platform.SetClipboardText = [](const QString &text) {
        QGuiApplication::clipboard()->setText(text);
    };
    platform.WheelLines = [] { return QApplication::wheelScrollLines(); };
    platform.MsgBoxInfo = [](const QString &text, const QString &caption) {
        AskUser(text, caption, QMessageBox::Information, QMessageBox::Ok);
    };
    platform.MsgBoxYesNo = [](const QString &text, const QString &caption) {
        return AskUser(text, caption, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No);
    };
    platform.MsgBoxYesNoCancel = [](const QString &text, const QString &caption) {
        return AskUser(text, caption, QMessageBox::Question,
                       QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    };
    platform.ShowException = [](const QString &message) {
        AskUser(message, QString(), QMessageBox::Critical, QMessageBox::Ok);
    };
    return platform;
}

TZtPlatform &ZtPlatform()
{
    static TZtPlatform platform = ZtDefaultPlatform();
    return platform;
}

void ZtHandleException(std::exception_ptr AException)
{
    try {
        std::rethrow_exception(std::move(AException));
    } catch (const EAbort &) {
        // silent by its meaning
    } catch (const std::exception &e) {
        ZtPlatform().ShowException(QString::fromUtf8(e.what()));
    }
}

TZtEventShift::TZtEventShift(Qt::KeyboardModifiers AModifiers)
    : FOuter(EventModifiers), FModifiers(AModifiers)
{
    EventModifiers = &FModifiers;
}

TZtEventShift::~TZtEventShift() { EventModifiers = FOuter; }
