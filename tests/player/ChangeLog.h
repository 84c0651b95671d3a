// In which order a model changes.
#pragma once

#include "player/PlayerModel.h"

#include <QMetaMethod>
#include <QMetaProperty>

/// Writes down in which order the model changes.
class ChangeLog : public QObject {
    Q_OBJECT

public:
    explicit ChangeLog(const zeph::PlayerModel &model)
    {
        const QMetaMethod write = staticMetaObject.method(staticMetaObject.indexOfSlot("write()"));
        const QMetaObject &type = zeph::PlayerModel::staticMetaObject;
        for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
            if (type.property(i).hasNotifySignal())
                connect(&model, type.property(i).notifySignal(), this, write);
        }
    }

    QStringList changes;

    void write(const QString &change) { changes << change; }

public Q_SLOTS:
    void write()
    {
        QString signal =
            QString::fromLatin1(sender()->metaObject()->method(senderSignalIndex()).name());
        changes << signal.remove(QStringLiteral("Changed"));
    }
};
