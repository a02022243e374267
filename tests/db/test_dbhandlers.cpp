// Handlers of a dataset, its source and its editor that close, delete or raise.

#include "scripts_table.h"

#include "uZtPlatform.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

class TDbHandlers : public TScriptsTable {
protected:
    TDbHandlers()
    {
        ZtPlatform().ShowException = [](const QString &) {};
        Fill();
    }
    ~TDbHandlers() override { ZtPlatform() = ZtDefaultPlatform(); }

    struct TParts {
        QPointer<TDataSet> Data;
        QPointer<TDataSource> Link;
        QPointer<TZtDbCodeEdit> Edit;
    } Parts;

    void Create(const QString &AField)
    {
        Parts.Data = new TDataSet;
        Parts.Link = new TDataSource;
        Parts.Edit = new TZtDbCodeEdit;
        Parts.Data->SetModel(Model.get());
        Parts.Link->SetDataSet(Parts.Data);
        Parts.Edit->SetDataField(AField);
        Parts.Edit->SetDataSource(Parts.Link);
        Parts.Data->Open();
    }
    void Destroy()
    {
        delete Parts.Edit;
        delete Parts.Link;
        delete Parts.Data;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    template <typename T> static void Quietly(T AOperation)
    {
        try {
            AOperation();
        } catch (const EZtException &) {
        } catch (int) {
        }
    }
};

} // namespace

TEST_F(TDbHandlers, MayDoWhatTheyLike)
{
    using THandler = std::function<void()>;
    const std::pair<const char *, std::function<void(const THandler &)>> callbacks[] = {
        {"OnStateChange",
         [&](const THandler &h) { Parts.Link->OnStateChange = [h](QObject *) { h(); }; }},
        {"OnDataChange",
         [&](const THandler &h) { Parts.Link->OnDataChange = [h](QObject *, TField *) { h(); }; }},
        {"OnUpdateData",
         [&](const THandler &h) { Parts.Link->OnUpdateData = [h](QObject *) { h(); }; }},
        {"OnLoadData",
         [&](const THandler &h) { Parts.Edit->OnLoadData = [h](QObject *) { h(); }; }},
        {"OnValidate",
         [&](const THandler &h) {
             for (int i = 0; i < Parts.Data->GetFieldCount(); ++i)
                 Parts.Data->GetFields(i)->OnValidate = [h](TField *) { h(); };
         }},
        {"OnChange", [&](const THandler &h) { Parts.Edit->SetOnChange([h](QObject *) { h(); }); }},
    };
    const std::pair<const char *, THandler> actions[] = {
        {"close", [&] { Parts.Data->Close(); }},
        {"cancel", [&] { Parts.Data->Cancel(); }},
        {"detach", [&] { Parts.Edit->SetDataSource(nullptr); }},
        {"detach the set", [&] { Parts.Link->SetDataSet(nullptr); }},
        {"delete the editor", [&] { delete Parts.Edit; }},
        {"delete the source", [&] { delete Parts.Link; }},
        {"delete the dataset", [&] { delete Parts.Data; }},
        {"raise", [] { throw EDatabaseError("raised"); }},
        {"raise an int", [] { throw 7; }},
    };
    const std::pair<const char *, THandler> triggers[] = {
        {"next", [&] { Parts.Data->Next(); }},
        {"edit, type, post",
         [&] {
             Parts.Edit->InsertText(TZtChangeType::ctInsert, "x");
             if (Parts.Data)
                 Parts.Data->Post();
         }},
        {"insert, post",
         [&] {
             Parts.Data->Insert();
             if (Parts.Data)
                 Parts.Data->Post();
         }},
        {"store",
         [&] {
             Parts.Data->Edit();
             if (Parts.Data && Parts.Data->GetActive())
                 Parts.Data->FieldByName("source")->SetText("stored");
         }},
        {"delete", [&] { Parts.Data->Delete(); }},
        {"leave",
         [&] {
             Parts.Edit->InsertText(TZtChangeType::ctInsert, "y");
             if (Parts.Edit)
                 Parts.Edit->CMExit();
         }},
        {"close", [&] { Parts.Data->Close(); }},
    };
    int ran = 0;
    for (const char *field : {"source", "data"})
        for (const auto &[trigger, run] : triggers)
            for (const auto &[callback, install] : callbacks)
                for (const auto &[action, act] : actions)
                    for (const int at : {1, 2}) {
                        SCOPED_TRACE(
                            QStringList({trigger, callback, action}).join(", ").toStdString());
                        Run("BEGIN", "ours");
                        Create(field);
                        int calls = 0;
                        install([&, &act = act] {
                            if (++calls == at && Parts.Edit && Parts.Link && Parts.Data)
                                act();
                        });
                        Quietly(run);
                        ran += calls >= at;
                        Destroy();
                        Run("ROLLBACK", "ours");
                        ASSERT_FALSE(Parts.Edit || Parts.Link || Parts.Data);
                    }
    EXPECT_GT(ran, 300);
}
