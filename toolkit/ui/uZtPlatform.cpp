#include "uZtPlatform.h"

#include "uZtException.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMessageBox>
#include <QMimeData>

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

} // namespace

QLatin1StringView ZtDesktopBreak()
{
#ifdef Q_OS_WIN
    return QLatin1StringView("\r\n");
#else
    return QLatin1StringView("\n");
#endif
}

QString ZtToDesktop(const QString &AText) { return WithBreaks(AText, ZtDesktopBreak()); }

QString ZtFromDesktop(const QString &AText) { return WithBreaks(AText, QLatin1StringView("\r\n")); }

TZtPlatform ZtDefaultPlatform()
{
    TZtPlatform platform;
    platform.KeyboardShift = [] {
        return ZtShiftState(EventModifiers ? *EventModifiers
                                           : QGuiApplication::keyboardModifiers());
    };
    platform.HasClipboardText = [] {
        const QMimeData *data = QGuiApplication::clipboard()->mimeData();
        return data && data->hasText();
    };
    platform.ClipboardText = [] { return ZtFromDesktop(QGuiApplication::clipboard()->text()); };
    platform.SetClipboardText = [](const QString &text) {
        QGuiApplication::clipboard()->setText(ZtToDesktop(text));
    };
    platform.HasPrimary = [] { return QGuiApplication::clipboard()->supportsSelection(); };
    platform.PrimaryText = [] {
        return ZtFromDesktop(QGuiApplication::clipboard()->text(QClipboard::Selection));
    };
    platform.SetPrimary = [](QMimeData *data) {
        if (data)
            QGuiApplication::clipboard()->setMimeData(data, QClipboard::Selection);
        else
            QGuiApplication::clipboard()->clear(QClipboard::Selection);
    };
    platform.RunDrag = [](QDrag *drag, Qt::DropActions actions) {
        return drag->exec(actions,
                          actions.testFlag(Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction);
    };
    platform.SetClipboardData = [](std::unique_ptr<QMimeData> data) {
        data->setText(ZtToDesktop(data->text()));
        QGuiApplication::clipboard()->setMimeData(data.release());
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
