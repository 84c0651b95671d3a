// The colour of warnings.
#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration>

namespace zeph {

/// Of what went wrong, and of what cannot be undone.
class WarningColor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// A red that can be read on a dark background, or on a light one.
    Q_INVOKABLE static QColor on(const QColor &background);
};

} // namespace zeph
