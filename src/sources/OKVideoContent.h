// An address of the OK video service, recognised.
#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>

namespace zeph {

struct OKVideoContent {
    Q_GADGET
    Q_PROPERTY(QString id READ id)
    Q_PROPERTY(QUrl embedURL READ embedURL)

public:
    /// Letters, digits, "-" and "_" only; never empty.
    QString videoID;

    /// Nothing when `url` is not an address of a video of the service.
    static std::optional<OKVideoContent> fromUrl(const QUrl &url);

    const QString &id() const { return videoID; }
    /// The service's page that plays the video by itself.
    QUrl embedURL() const;

    bool operator==(const OKVideoContent &) const = default;
};

} // namespace zeph
