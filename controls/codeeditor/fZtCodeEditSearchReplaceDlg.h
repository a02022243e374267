#pragma once

#include "uZtKeys.h"

#include <QDialog>
#include <QGroupBox>

#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

enum class TFrmCodeEditSearchReplaceDlgType : quint8 { search, replace };

/// A group of choices of which one is chosen. Tab enters it there.
class TRadioGroup : public QGroupBox {
    Q_OBJECT

public:
    TRadioGroup(const QString &ACaption, const QStringList &AItems, QWidget *AParent);

    /// The 0-based index of the chosen item.
    int GetItemIndex() const;
    void SetItemIndex(int Value);
    const std::vector<QRadioButton *> &GetButtons() const { return FButtons; }
    bool GetGoesRound() const { return FGoesRound; }
    /// Whether all four arrow keys move the choice, from an end to the other one too. If not, Up
    /// and Down do, up to the ends.
    void SetGoesRound(bool Value) { FGoesRound = Value; }

protected:
    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;

private:
    std::vector<QRadioButton *> FButtons;
    bool FGoesRound = false;
};

/// The form in which a user sets up a search or a replacement. It has a page for each, of which
/// `DlgType` shows one; the pages keep their entries apart, and the form keeps them between two
/// showings, as it keeps a width that the user gave it. It closes with 1 (OK), 2 (Cancel, Escape)
/// or 10 (Replace All).
///
/// Geometry is in pixels at a font of 8 points and grows with a larger one, and where the texts of
/// another language than English need more room.
class TFrmCodeEditSearchReplaceDlg : public QDialog {
    Q_OBJECT

public:
    explicit TFrmCodeEditSearchReplaceDlg(QWidget *AOwner = nullptr);

    TFrmCodeEditSearchReplaceDlgType GetDlgType() const { return FDlgType; }
    /// Shows the other page, with its caption, height and buttons; nothing when it is the same.
    void SetDlgType(TFrmCodeEditSearchReplaceDlgType Value);
    bool GetCtl3D() const { return FCtl3D; }
    void SetCtl3D(bool Value) { FCtl3D = Value; }
    /// What the arrow keys do in the groups of choices (`TRadioGroup::SetGoesRound`).
    void SetGoesRound(bool Value);
    /// Shows the form and returns how it was closed.
    int ShowModal() { return exec(); }
    /// What happens when the form is shown: the text to find gets the focus, all of it selected.
    void FormShow(QObject *Sender);
    /// What the form does with a key press before the control that has the focus: Escape closes it
    /// with 2 and makes `Key` 0, which ends the key press. Every other key passes on.
    void FormKeyDown(QObject *Sender, quint16 &Key, TShiftState Shift);

    // The controls of the page that is shown.
    QLineEdit *GetEdtTextToFind() const;
    TRadioGroup *GetRgScope() const;
    TRadioGroup *GetRgOrigin() const;
    TRadioGroup *GetRgDirection() const;
    QCheckBox *GetChkBxCaseSensitive() const;
    QCheckBox *GetChkBxWholeWordsOnly() const;

    QTabWidget *pcMain;
    QWidget *tsFind;
    QLabel *lblTextToFind;
    QLineEdit *edtSearchTextToFind;
    QGroupBox *gbSearchOptions;
    QCheckBox *chkBxSearchCaseSensitive;
    QCheckBox *chkBxSearchWholeWordsOnly;
    TRadioGroup *rgSearchScope;
    TRadioGroup *rgSearchDirection;
    TRadioGroup *rgSearchOrigin;
    QWidget *tsReplace;
    QLabel *Label1;
    QLabel *lblReplaceWith;
    QLineEdit *edtReplaceTextToFind;
    QLineEdit *edtReplaceWith;
    QGroupBox *gbReplaceOptions;
    QCheckBox *chkBxReplaceCaseSensitive;
    QCheckBox *chkBxReplaceWholeWordsOnly;
    QCheckBox *chkBxPromptOnReplace;
    TRadioGroup *rgReplaceDirection;
    TRadioGroup *rgReplaceScope;
    TRadioGroup *rgReplaceOrigin;
    QPushButton *btnOK;
    QPushButton *btnCancel;
    QPushButton *btnReplaceAll;

    void reject() override;

protected:
    bool event(QEvent *AEvent) override;
    bool eventFilter(QObject *AWatched, QEvent *AEvent) override;
    void showEvent(QShowEvent *AEvent) override;
    void resizeEvent(QResizeEvent *AEvent) override;
    void changeEvent(QEvent *AEvent) override;

private:
    void CreateFindPage();
    void CreateReplacePage();
    void CreateButtons();
    void SetTabOrders();
    QGroupBox *CreateOptions(QWidget *APage, const std::vector<QCheckBox **> &ABoxes,
                             const QStringList &ACaptions);
    TRadioGroup *CreateChoice(QWidget *APage, const QString &ACaption, const QStringList &AItems,
                              int AIndex);
    void NameControls();
    bool IsReplace() const { return FDlgType == TFrmCodeEditSearchReplaceDlgType::replace; }
    bool TakesKey(QEvent *AEvent);
    void ColourForm();
    void FitToType();
    void MeasureTexts();
    void Arrange();
    int Scaled(int APixels) const;

    TFrmCodeEditSearchReplaceDlgType FDlgType;
    bool FCtl3D = false;
    // What the texts of another language need beyond their places, in pixels.
    struct TGrowth {
        int Label = 0;
        int Button = 0;
        int Form = 0; // half of it for each of two groups side by side
    };

    TGrowth FGrowth;
    int FOKLeft = 162;
    int FReplaceAllLeft = 240;
};
