// How parts that do not know one another tell each other things.
#pragma once

#include <QObject>

#include <type_traits>
#include <utility>

namespace zeph {

/// The name under which something is told, and the type of the object that it is about.
template <typename Object> struct Notification {
    QLatin1StringView name;
};

/// Tells whoever observes a notification that it was posted. Main thread only.
class NotificationCenter : public QObject {
    Q_OBJECT

public:
    /// The one that the whole program shares.
    static NotificationCenter &defaultCenter();

    /// Calls the observers before it returns. `object` may be null.
    template <typename Object>
    void post(const Notification<Object> &notification, std::type_identity_t<Object> *object)
    {
        Q_EMIT posted(notification.name, object);
    }

    /// Calls `observer` with the object of each such notification, for as long as `context` lives
    /// and the connection is not taken apart.
    template <typename Object, typename Observer>
    QMetaObject::Connection observe(
        const Notification<Object> &notification, const QObject *context, Observer observer)
    {
        const auto observeNamed = [name = notification.name, observer = std::move(observer)](
                                      QLatin1StringView postedName, QObject *object) {
            if (postedName == name)
                observer(static_cast<Object *>(object));
        };
        return connect(this, &NotificationCenter::posted, context, observeNamed);
    }

Q_SIGNALS:
    void posted(QLatin1StringView name, QObject *object);
};

} // namespace zeph
