// Handlers of a dataset, its source and its editor that close, delete or raise.

#include "scripts_table.h"

TEST_F(TScriptsTable, HandlersMayDoWhatTheyLike)
{
    using THandler = std::function<void()>;
    const std::pair<const char *, std::function<void(const THandler &)>> callbacks[] = {
        {"OnStateChange",
         [this](const THandler &h) { Source->OnStateChange = [h](QObject *) { h(); }; }},
        {"OnDataChange",
         [this](const THandler &h) { Source->OnDataChange = [h](QObject *, TField *) { h(); }; }},
        {"OnUpdateData",
         [this](const THandler &h) { Source->OnUpdateData = [h](QObject *) { h(); }; }},
        {"OnLoadData", [this](const THandler &h) { Edit->OnLoadData = [h](QObject *) { h(); }; }},
        {"OnValidate",
         [this](const THandler &h) { Edit->GetField()->OnValidate = [h](TField *) { h(); }; }},
        {"OnChange", [this](const THandler &h) { Edit->SetOnChange([h](QObject *) { h(); }); }},
    };
    Words["raise"] = [](auto) { throw EDatabaseError("raised"); };
    Words["raise-int"] = [](auto) { throw 7; };
    int ran = 0;
    for (const QString field : {"source", "data"})
        for (const QString words : {"next", "put:x post", "insert post", "edit source=stored",
                                    "delete", "put:y leave", "close"})
            for (const auto &[callback, install] : callbacks)
                for (const QString action :
                     {"close", "cancel", "detach", "detach-set", "delete-editor", "delete-source",
                      "delete-set", "raise", "raise-int"})
                    for (const int at : {1, 2, -1, -2}) { // below 0: the call -at, all corrected
                        SCOPED_TRACE(
                            QStringList({words, callback, action}).join(", ").toStdString());
                        Run("BEGIN", "ours");
                        Destroy();
                        Create();
                        if (at < 0)
                            Edit->SetCorrections(ZtAllCorrections());
                        Do("bind:" + field);
                        int calls = 0;
                        install([&, &act = action] {
                            if (++calls == qAbs(at) && Edit && Source && Data)
                                Do(act);
                        });
                        try {
                            Fault(words);
                        } catch (int) {
                        }
                        ran += calls >= qAbs(at);
                        Destroy();
                        Run("ROLLBACK", "ours");
                        ASSERT_FALSE(Edit || Source || Data);
                    }
    EXPECT_GT(ran, 600);
}
