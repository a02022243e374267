// Two editors side by side show one text, each in colours of its own.

#include "uZtCodeEdit.h"

#include <QApplication>
#include <QComboBox>
#include <QSplitter>
#include <QVBoxLayout>

#include <memory>

namespace {

TZtCodeEdit *AddPane(QSplitter &ASplitter, const QString &AScheme)
{
    auto *pane = new QWidget(&ASplitter);
    auto *choice = new QComboBox(pane);
    auto *editor = new TZtCodeEdit(pane);
    auto *layout = new QVBoxLayout(pane);
    layout->addWidget(choice);
    layout->addWidget(editor, 1);

    editor->SetCorrections(ZtAllCorrections());
    editor->SetExtras(ZtAllExtras());
    editor->SetLanguage("JavaScript");
    QObject::connect(choice, &QComboBox::currentTextChanged, editor, [editor](const QString &name) {
        editor->SetScheme(TZtColorScheme::Find(name));
    });
    choice->addItems(TZtColorScheme::BundledNames());
    choice->setCurrentText(AScheme);
    return editor;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QSplitter window;
    TZtCodeEdit *left = AddPane(window, "Light");
    TZtCodeEdit *right = AddPane(window, "Dark");
    right->ShareText(left);
    left->SetText("// What is typed on one side is there on the other.\n"
                  "function area(shape) {\n"
                  "  if (shape.kind === 'circle')\n"
                  "    return 3.14159 * shape.radius ** 2;\n"
                  "  return shape.width * shape.height;\n"
                  "}\n");
    window.resize(900, 360);
    window.show();
    return QApplication::exec();
}
