// What all pages have in common.
#pragma once

#include <QQuickWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>

namespace zeph {

/// The one profile of the process: it keeps nothing after the process, and saves no files.
/// Main thread only.
class BrowserProfile : public QQuickWebEngineProfile {
    Q_OBJECT

public:
    /// Made by the first call. It outlives all pages.
    static BrowserProfile &shared();

    /// From now on whoever loads `url` as a page says that it comes from `referer`.
    void setReferer(const QUrl &url, const QByteArray &referer);

private:
    class Interceptor : public QWebEngineUrlRequestInterceptor {
    public:
        void interceptRequest(QWebEngineUrlRequestInfo &request) override;

        QUrl url;
        QByteArray referer;
    };

    BrowserProfile();

    Interceptor m_interceptor;
};

} // namespace zeph
