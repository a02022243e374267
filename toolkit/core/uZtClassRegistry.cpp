#include "uZtClassRegistry.h"

#include <QHash>

namespace {

// A function-local table, so that a unit can register itself during static initialisation.
QHash<QString, TZtObjectFactory> &Factories()
{
    static QHash<QString, TZtObjectFactory> table;
    return table;
}

} // namespace

void ZtRegisterFactory(const QString &AClassName, TZtObjectFactory AFactory)
{
    if (!Factories().contains(AClassName))
        Factories().insert(AClassName, std::move(AFactory));
}

QObject *ZtCreateObject(const QString &AClassName, QObject *AOwner)
{
    const TZtObjectFactory factory = Factories().value(AClassName);
    return factory ? factory(AOwner) : nullptr;
}
