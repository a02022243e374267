#include "uZtPlatform.h"

#include "uZtException.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>

#include <new>

namespace {

const Qt::KeyboardModifiers *EventModifiers = nullptr;

int AskUser(const QString &AText, const QString &ACaption, QMessageBox::Icon AIcon,
            QMessageBox::StandardButtons AButtons,
            QMessageBox::StandardButton ADefault = QMessageBox::NoButton)
{
    QMessageBox box(AIcon, ACaption.isEmpty() ? QApplication::applicationDisplayName() : ACaption,
                    AText, AButtons, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(ADefault);
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

// A text with `ABreak` at each of its line breaks: CR LF, CR and LF are one each.
QString WithBreaks(const QString &AText, QLatin1StringView ABreak)
{
    QString text;
    text.reserve(AText.size());
    for (qsizetype i = 0; i < AText.size(); ++i) {
        const QChar C = AText[i];
        if (C == u'\r' && i + 1 < AText.size() && AText[i + 1] == u'\n')
            ++i;
        if (C == u'\r' || C == u'\n')
            text += ABreak;
        else
            text += C;
    }
    return text;
}

#ifdef Q_OS_WIN
constexpr QLatin1StringView DesktopBreak("\r\n");
#else
constexpr QLatin1StringView DesktopBreak("\n");
#endif

} // namespace

TZtPlatform ZtDefaultPlatform()
{
    TZtPlatform platform;
    platform.KeyboardShift = [] {
        return ZtShiftState(EventModifiers ? *EventModifiers
                                           : QGuiApplication::keyboardModifiers());
    };
    platform.ClipboardText = [] {
        return WithBreaks(QGuiApplication::clipboard()->text(), QLatin1StringView("\r\n"));
    };
    platform.SetClipboardText = [](const QString &text) {
        QGuiApplication::clipboard()->setText(WithBreaks(text, DesktopBreak));
    };
    platform.WheelLines = [] { return QApplication::wheelScrollLines(); };
    platform.MsgBoxInfo = [](const QString &text, const QString &caption) {
        AskUser(text, caption, QMessageBox::Information, QMessageBox::Ok);
    };
    platform.MsgBoxError = [](const QString &text, const QString &caption) {
        AskUser(text, caption, QMessageBox::Critical, QMessageBox::Ok);
    };
    platform.MsgBoxConfirm = [](const QString &text, const QString &caption) {
        return AskUser(text, caption, QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No,
                       QMessageBox::No);
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
    platform.IsAssisted = [] { return QAccessible::isActive(); };
    platform.TellAssistants = [](QAccessibleEvent &event) {
        QAccessible::updateAccessibility(&event);
    };
    return platform;
}

TZtPlatform &ZtPlatform()
{
    static TZtPlatform platform = ZtDefaultPlatform();
    return platform;
}

QString ZtCurrentExceptionMessage()
{
    QString message;
    try {
        throw;
    } catch (const EAbort &) {
        return {}; // silent by its meaning
    } catch (const std::bad_alloc &) {
        return QCoreApplication::translate("ZtPlatform", "There is not enough memory.");
    } catch (const std::exception &e) {
        message = QString::fromUtf8(e.what());
    } catch (...) {
        // nothing is known about it
    }
    return message.isEmpty()
               ? QCoreApplication::translate("ZtPlatform", "Something unknown went wrong.")
               : message;
}

void ZtHandleException(std::exception_ptr AException)
{
    try {
        std::rethrow_exception(std::move(AException));
    } catch (...) {
        const QString message = ZtCurrentExceptionMessage();
        if (!message.isEmpty())
            ZtPlatform().ShowException(message);
    }
}

TZtEventShift::TZtEventShift(Qt::KeyboardModifiers AModifiers)
    : FOuter(EventModifiers), FModifiers(AModifiers)
{
    EventModifiers = &FModifiers;
}

TZtEventShift::~TZtEventShift() { EventModifiers = FOuter; }
