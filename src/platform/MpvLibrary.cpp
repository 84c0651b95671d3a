#include "platform/MpvLibrary.h"

#include <QLibrary>

namespace zeph {

namespace {

template <typename Function> bool resolve(QLibrary &library, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

bool resolveAll(QLibrary &library, MpvLibrary &mpv)
{
    return resolve(library, "mpv_error_string", mpv.error_string)
        && resolve(library, "mpv_create", mpv.create)
        && resolve(library, "mpv_initialize", mpv.initialize)
        && resolve(library, "mpv_terminate_destroy", mpv.terminate_destroy)
        && resolve(library, "mpv_set_option_string", mpv.set_option_string)
        && resolve(library, "mpv_command_async", mpv.command_async)
        && resolve(library, "mpv_set_property_string", mpv.set_property_string)
        && resolve(library, "mpv_set_property_async", mpv.set_property_async)
        && resolve(library, "mpv_get_property_async", mpv.get_property_async)
        && resolve(library, "mpv_observe_property", mpv.observe_property)
        && resolve(library, "mpv_unobserve_property", mpv.unobserve_property)
        && resolve(library, "mpv_hook_add", mpv.hook_add)
        && resolve(library, "mpv_hook_continue", mpv.hook_continue)
        && resolve(library, "mpv_wait_event", mpv.wait_event)
        && resolve(library, "mpv_set_wakeup_callback", mpv.set_wakeup_callback)
        && resolve(library, "mpv_render_context_create", mpv.render_context_create)
        && resolve(library, "mpv_render_context_free", mpv.render_context_free)
        && resolve(library, "mpv_render_context_get_info", mpv.render_context_get_info)
        && resolve(library, "mpv_render_context_set_update_callback",
            mpv.render_context_set_update_callback)
        && resolve(library, "mpv_render_context_update", mpv.render_context_update)
        && resolve(library, "mpv_render_context_render", mpv.render_context_render);
}

} // namespace

const MpvLibrary *MpvLibrary::load()
{
    static const MpvLibrary table = [] {
        MpvLibrary mpv;
        QLibrary library(QStringLiteral("mpv"), MPV_CLIENT_API_VERSION >> 16);
        return resolveAll(library, mpv) ? mpv : MpvLibrary {};
    }();
    return table.render_context_render ? &table : nullptr;
}

} // namespace zeph
