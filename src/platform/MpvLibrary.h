// libmpv, loaded while the program runs.
#pragma once

#include <mpv/client.h>
#include <mpv/render.h>

namespace zeph {

/// The functions of libmpv that we call.
///
/// The library and all that it links take about 60 ms to load, which the first window need not wait
/// for; that is why the program does not link it.
struct MpvLibrary {
    decltype(&::mpv_error_string) error_string = nullptr;
    decltype(&::mpv_create) create = nullptr;
    decltype(&::mpv_initialize) initialize = nullptr;
    decltype(&::mpv_terminate_destroy) terminate_destroy = nullptr;
    decltype(&::mpv_set_option_string) set_option_string = nullptr;
    decltype(&::mpv_command_async) command_async = nullptr;
    decltype(&::mpv_set_property_string) set_property_string = nullptr;
    decltype(&::mpv_set_property_async) set_property_async = nullptr;
    decltype(&::mpv_get_property_async) get_property_async = nullptr;
    decltype(&::mpv_observe_property) observe_property = nullptr;
    decltype(&::mpv_unobserve_property) unobserve_property = nullptr;
    decltype(&::mpv_hook_add) hook_add = nullptr;
    decltype(&::mpv_hook_continue) hook_continue = nullptr;
    decltype(&::mpv_wait_event) wait_event = nullptr;
    decltype(&::mpv_set_wakeup_callback) set_wakeup_callback = nullptr;
    decltype(&::mpv_render_context_create) render_context_create = nullptr;
    decltype(&::mpv_render_context_free) render_context_free = nullptr;
    decltype(&::mpv_render_context_get_info) render_context_get_info = nullptr;
    decltype(&::mpv_render_context_set_update_callback) render_context_set_update_callback =
        nullptr;
    decltype(&::mpv_render_context_update) render_context_update = nullptr;
    decltype(&::mpv_render_context_render) render_context_render = nullptr;

    /// Loads the library on the first call, and answers with the same table from then on. Null when
    /// it is missing or lacks a function. Any thread.
    static const MpvLibrary *load();
};

} // namespace zeph
