// An ffmpeg that sends without an end, as a television station does.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace zeph {

/// A running ffmpeg that writes a moving picture in real time; ends with its owner. Main thread
/// only.
class LiveStream {
public:
    /// Writes to what `output`, ffmpeg's arguments for it, names.
    explicit LiveStream(const QStringList &output);
    /// Writes HLS into `folder`: "live.m3u8" and segments of one second, of which the last four
    /// stay.
    static QStringList hls(const QString &folder);

    ~LiveStream();
    LiveStream(const LiveStream &) = delete;
    LiveStream &operator=(const LiveStream &) = delete;

    /// Holds it up, and lets it go on.
    void stall();
    void goOn();
    /// Ends it properly, with what its format writes at the end.
    void end();

private:
    QProcess m_ffmpeg;
};

/// A UDP port of 127.0.0.1 that is free at the moment, and most likely the TCP port as well.
int freePort();

} // namespace zeph
