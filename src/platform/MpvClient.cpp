#include "platform/MpvClient.h"

#include <QPointer>
#include <QVarLengthArray>

#include <cstring>
#include <limits>
#include <utility>

namespace zeph {

namespace {

QVariant toVariant(const mpv_event_property &property)
{
    switch (property.format) {
    case MPV_FORMAT_FLAG:
        return *static_cast<int *>(property.data) != 0;
    case MPV_FORMAT_DOUBLE:
        return *static_cast<double *>(property.data);
    default:
        return {};
    }
}

// A number for a request of our own that no one else uses.
constexpr quint64 lengthRequest = std::numeric_limits<quint64>::max();

// The answer to a load command is a map that holds the number of the entry.
qint64 playlistEntry(const mpv_node &result)
{
    if (result.format != MPV_FORMAT_NODE_MAP)
        return 0;
    for (int i = 0; i < result.u.list->num; ++i) {
        if (std::strcmp(result.u.list->keys[i], "playlist_entry_id") == 0
            && result.u.list->values[i].format == MPV_FORMAT_INT64)
            return result.u.list->values[i].u.int64;
    }
    return 0;
}

} // namespace

MpvClient::MpvClient(std::shared_ptr<MpvHandle> handle, QObject *parent)
    : QObject(parent), m_handle(std::move(handle))
{
    const auto wakeUp = [](void *client) { static_cast<MpvClient *>(client)->scheduleEvents(); };
    m_handle->library().set_wakeup_callback(m_handle->get(), wakeUp, this);
    m_handle->library().hook_add(m_handle->get(), 0, "on_preloaded", 0);
}

MpvClient::~MpvClient()
{
    m_handle->library().set_wakeup_callback(m_handle->get(), nullptr, nullptr);
}

void MpvClient::command(const QList<QByteArray> &arguments, quint64 request)
{
    QVarLengthArray<const char *, 8> pointers;
    for (const QByteArray &argument : arguments)
        pointers.append(argument.constData());
    pointers.append(nullptr);
    m_handle->library().command_async(m_handle->get(), request, pointers.data());
}

void MpvClient::setFlag(const char *property, bool value)
{
    int flag = value;
    m_handle->library().set_property_async(m_handle->get(), 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvClient::setNumber(const char *property, double value)
{
    m_handle->library().set_property_async(m_handle->get(), 0, property, MPV_FORMAT_DOUBLE, &value);
}

void MpvClient::setText(const char *property, const char *value)
{
    m_handle->library().set_property_async(m_handle->get(), 0, property, MPV_FORMAT_STRING, &value);
}

void MpvClient::observe(quint64 observation, const char *property, mpv_format format)
{
    m_handle->library().observe_property(m_handle->get(), observation, property, format);
}

void MpvClient::unobserve(quint64 observation)
{
    m_handle->library().unobserve_property(m_handle->get(), observation);
}

void MpvClient::request(quint64 question, const char *property, mpv_format format)
{
    m_handle->library().get_property_async(m_handle->get(), question, property, format);
}

// Called by the core's own threads, once for each of many events.
void MpvClient::scheduleEvents()
{
    if (!m_eventsScheduled.exchange(true))
        QMetaObject::invokeMethod(this, &MpvClient::drainEvents, Qt::QueuedConnection);
}

void MpvClient::drainEvents()
{
    m_eventsScheduled = false;
    // A handler may destroy this client, and then the handle may live on.
    const std::shared_ptr<MpvHandle> handle = m_handle;
    const QPointer<MpvClient> self = this;
    while (self) {
        const mpv_event *event = handle->library().wait_event(handle->get(), 0);
        if (event->event_id == MPV_EVENT_NONE) {
            Q_EMIT eventsDrained();
            return;
        }
        handleEvent(*event);
    }
}

void MpvClient::handleEvent(const mpv_event &event)
{
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (event.reply_userdata != 0) {
            const auto &reply = *static_cast<mpv_event_command *>(event.data);
            Q_EMIT commandFinished(
                event.reply_userdata, event.error >= 0, playlistEntry(reply.result));
        }
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY: {
        const bool available = event.error >= 0;
        if (event.reply_userdata == lengthRequest) {
            m_handle->library().hook_continue(m_handle->get(), m_openingHook);
            Q_EMIT fileOpened(available);
            break;
        }
        const auto &property = *static_cast<mpv_event_property *>(event.data);
        Q_EMIT answered(event.reply_userdata, available ? toVariant(property) : QVariant());
        break;
    }
    case MPV_EVENT_PROPERTY_CHANGE: {
        const auto &property = *static_cast<mpv_event_property *>(event.data);
        Q_EMIT propertyChanged(event.reply_userdata, property.name, toVariant(property));
        break;
    }
    case MPV_EVENT_START_FILE:
        Q_EMIT fileStarted(static_cast<mpv_event_start_file *>(event.data)->playlist_entry_id);
        break;
    case MPV_EVENT_HOOK:
        m_openingHook = static_cast<mpv_event_hook *>(event.data)->id;
        request(lengthRequest, "duration", MPV_FORMAT_DOUBLE);
        break;
    case MPV_EVENT_FILE_LOADED:
        Q_EMIT fileLoaded();
        break;
    case MPV_EVENT_END_FILE: {
        const auto &end = *static_cast<mpv_event_end_file *>(event.data);
        const bool failed = end.reason == MPV_END_FILE_REASON_ERROR;
        const char *error = failed ? m_handle->library().error_string(end.error) : "";
        Q_EMIT fileEnded(end.playlist_entry_id, QString::fromUtf8(error));
        break;
    }
    case MPV_EVENT_SEEK:
        Q_EMIT seekStarted();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        Q_EMIT playbackRestarted();
        break;
    default:
        break;
    }
}

} // namespace zeph
