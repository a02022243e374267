#pragma once

#include "DbConnection.h"
#include "Document.h"

#include "uZtDataSet.h"
#include "uZtDataSource.h"

#include <vector>

class QAction;
class EUpdateConflict;
class QListView;
class TRecordList;
class TRecordSource;
class TZtDbCodeEdit;

/// A tab with a list of a table's records beside an editor for one field of the current one.
///
/// What changes a record or leaves it tells the user why it failed, and then everything is as
/// before: the text stays in the editor and the record in edit state. Each such operation answers
/// whether it went through. Whatever leaves a record with unposted changes asks first.
class TDbDocument : public TDocument {
    Q_OBJECT

public:
    /// Raises `EDatabaseError` when the file, the table or a field is missing or cannot be read.
    explicit TDbDocument(const TDbPlace &APlace, QWidget *AParent = nullptr);
    ~TDbDocument() override;

    QString Title() const override;
    QString Location() const override { return FConnection.Path(); }
    /// Whether the record has changes that are not posted.
    bool IsModified() const override;
    QString DiscardQuestion() const override;
    bool IsUnused() const override { return false; }
    /// "Record 3 of 8"
    QString PositionText() const;
    /// What is being done with the record, such as "Editing".
    QString StateText() const;
    /// How the record is called in the list.
    QString RecordName() const;

    TDataSet &DataSet() { return FDataSet; }
    /// The commands of the tool bar, for a menu. One without a text separates.
    const std::vector<QAction *> &Actions() const { return FActions; }

    bool First() { return MoveTo(1); }
    bool Prior() { return MoveTo(FDataSet.GetRecNo() - 1); }
    bool Next() { return MoveTo(FDataSet.GetRecNo() + 1); }
    bool Last() { return MoveTo(FDataSet.GetRecordCount()); }
    /// Goes to a record, counted from 1; a number beyond either end means the record there.
    bool MoveTo(int ARecNo);
    /// Starts a new record behind the last one.
    bool Insert();
    /// `Insert`, then asks for the fields that are not in the editor.
    bool InsertWithFields();
    /// Shows the other fields of the record to be changed.
    bool EditFields();
    /// Removes the record, after a question.
    bool Delete();
    /// Writes the record; nothing happens when it is not being changed.
    bool Post();
    bool Cancel();
    /// Reads the records anew.
    bool Reload();

protected:
    TZtCodeEdit *CreateEditor() override;
    QList<TStatusText> StorageTexts() const override;

private:
    struct TCommand;

    void CreateWidgets();
    QWidget *CreateToolBar();
    int CaptionColumn() const;
    bool HasOtherFields() const;
    bool Leave();
    template <typename T> bool Try(const QString &AFault, T AOperation);
    void PostOrAsk();
    void Resolve(const EUpdateConflict &AConflict);
    void ShowRecord();
    void ShowLanguage();
    void FollowList();
    void SyncList();

    TDbPlace FPlace;
    TDbConnection FConnection;
    TRecordSource *FRecords = nullptr; // the dataset's
    std::unique_ptr<TRecordList> FCaptions;
    TDataSet FDataSet;
    TDataSource FSource;
    QListView *FList = nullptr;
    std::vector<QAction *> FActions;
};
