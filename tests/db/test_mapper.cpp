// The editor bound to a model by Qt's own mapper.

#include "uZtCodeEdit.h"
#include "uZtTextDelegate.h"

#include <QApplication>
#include <QDataWidgetMapper>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QStandardItemModel>

#include <gtest/gtest.h>

namespace {

const char *const Texts[] = {"a\nb", "a\r\nb\r\n", "", "one\r\ntwo\nthree", "last\n"};

struct TMapped {
    TMapped(QAbstractItemModel &AModel, QDataWidgetMapper::SubmitPolicy APolicy) : Model(AModel)
    {
        Edit.SetCorrections(ZtAllCorrections());
        Mapper.setModel(&AModel);
        Mapper.setSubmitPolicy(APolicy);
        Mapper.setItemDelegate(new TZtTextDelegate(&Mapper));
        Mapper.addMapping(&Edit, 1);
        Mapper.toFirst();
        Window.show();
        QApplication::setActiveWindow(&Window);
        Edit.setFocus();
    }
    QVariant Stored() const { return Model.index(Mapper.currentIndex(), 1).data(Qt::EditRole); }
    void Type(const QString &S)
    {
        for (const QChar C : S) {
            const int key = C == u'\r'   ? Qt::Key_Return
                            : C == u'\t' ? Qt::Key_Tab
                                         : Qt::Key_unknown;
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, C);
            QCoreApplication::sendEvent(&Edit, &event);
        }
        QCoreApplication::processEvents();
    }

    QAbstractItemModel &Model;
    QWidget Window;
    TZtCodeEdit Edit{&Window};
    QLineEdit Other{&Window};
    QDataWidgetMapper Mapper;
};

} // namespace

TEST(Mapper, LooksAtRecordsWithoutChangingThem)
{
    for (const auto policy : {QDataWidgetMapper::AutoSubmit, QDataWidgetMapper::ManualSubmit}) {
        QStandardItemModel model(int(std::size(Texts)) + 1, 2); // the last one without a value
        for (int i = 0; i < int(std::size(Texts)); ++i)
            model.setData(model.index(i, 1), Texts[i]);
        int changes = 0;
        TMapped mapped(model, policy);
        QObject::connect(&model, &QAbstractItemModel::dataChanged, [&] { ++changes; });
        for (int i = 0; i < model.rowCount(); ++i) {
            mapped.Mapper.setCurrentIndex(i);
            EXPECT_EQ(mapped.Edit.GetText(), mapped.Stored().toString()) << i;
            mapped.Edit.setFocus();
            mapped.Type("x");
            mapped.Edit.undo();
            mapped.Other.setFocus();
            EXPECT_TRUE(mapped.Mapper.submit());
        }
        EXPECT_EQ(changes, 0);
        EXPECT_FALSE(mapped.Stored().isValid());
    }
}

TEST(Mapper, StoresIntoATable)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "mapper");
        database.setDatabaseName(":memory:");
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec("CREATE TABLE t (id INTEGER PRIMARY KEY, source TEXT)"));
        ASSERT_TRUE(query.exec("INSERT INTO t VALUES (1, 'a' || char(13, 10) || 'b'), (2, NULL)"));
        const auto stored = [&](int id) {
            query.exec(QStringLiteral("SELECT source FROM t WHERE id = %1").arg(id));
            return query.next() ? query.value(0) : QVariant();
        };
        for (const auto policy : {QDataWidgetMapper::AutoSubmit, QDataWidgetMapper::ManualSubmit}) {
            const bool automatic = policy == QDataWidgetMapper::AutoSubmit;
            SCOPED_TRACE(automatic);
            QSqlTableModel model(nullptr, database);
            model.setTable("t");
            model.setEditStrategy(QSqlTableModel::OnManualSubmit);
            ASSERT_TRUE(model.select());
            TMapped mapped(model, policy);
            const QString before = stored(1).toString();
            mapped.Other.setFocus();
            mapped.Mapper.setCurrentIndex(1);
            mapped.Mapper.submit();
            EXPECT_FALSE(model.isDirty()) << "only looked at";
            mapped.Mapper.setCurrentIndex(0);
            mapped.Edit.setFocus();
            mapped.Type("x\ry");
            EXPECT_EQ(mapped.Edit.GetText(), "x\r\ny" + before)
                << "Enter and the caret are the editor's";
            mapped.Other.setFocus();
            EXPECT_EQ(mapped.Stored().toString() == mapped.Edit.GetText(), automatic);
            EXPECT_TRUE(mapped.Mapper.submit());
            EXPECT_EQ(mapped.Edit.GetLinePos(), 1) << "what comes back moves nothing";
            EXPECT_TRUE(model.submitAll());
            EXPECT_EQ(stored(1).toString(), "x\r\ny" + before);
            EXPECT_TRUE(stored(2).isNull());
        }
    }
    QSqlDatabase::removeDatabase("mapper");
}
