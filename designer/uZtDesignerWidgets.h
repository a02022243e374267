#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QObject>

#include <memory>
#include <vector>

/// The editors for form designers, and for forms that are loaded at run time.
///
/// What a designer alone wants is done by `TZtDesignTime` when a designer announces itself: a form
/// that is loaded at run time, or shown as a preview, gets the controls as a program makes them.
class TZtDesignerWidgets final : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit TZtDesignerWidgets(QObject *AParent = nullptr);
    ~TZtDesignerWidgets() override;

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    std::vector<std::unique_ptr<QDesignerCustomWidgetInterface>> FWidgets;
};
