#pragma once

#include <QObject>

class QDesignerFormEditorInterface;
class QDesignerFormWindowInterface;
class TZtCodeEdit;

/// What the editors do in the forms of a designer, beside what they do in programs: they know that
/// they are designed, show an example of their language as long as the form has no text for them
/// (the data-aware one shows its name), and their properties are in groups. The example is not
/// stored in the form.
class TZtDesignTime final : public QObject {
    Q_OBJECT

public:
    /// Follows the forms of a designer, once. Nothing happens without one.
    static void Attach(QDesignerFormEditorInterface *ACore);

private:
    explicit TZtDesignTime(QDesignerFormEditorInterface *ACore);
    void FollowForm(QDesignerFormWindowInterface *AForm);
    void Prepare(QWidget *AWidget);
    void Group(QWidget *AWidget);

    QDesignerFormEditorInterface *FCore;
};
