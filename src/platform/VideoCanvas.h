// What the engine's pictures are drawn on.
#pragma once

#include "platform/MpvHandle.h"

#include <QImage>
#include <QSize>

#include <memory>

namespace zeph {

/// A texture that the engine draws on, in one of the two ways that it can. Lives in the render
/// thread, with the window's OpenGL context current in every call.
class VideoCanvas {
public:
    /// Draws with OpenGL where that runs on a GPU, else on the CPU: the same picture drawn by
    /// OpenGL in software costs half as much again. The variable ZEPH_VIDEO_CANVAS ("opengl" or
    /// "software") overrides that. Null when the engine refuses.
    static std::unique_ptr<VideoCanvas> create(std::shared_ptr<MpvHandle> engine);

    VideoCanvas(std::shared_ptr<MpvHandle> engine, mpv_render_context *context);
    virtual ~VideoCanvas();
    VideoCanvas(const VideoCanvas &) = delete;
    VideoCanvas &operator=(const VideoCanvas &) = delete;

    const std::shared_ptr<MpvHandle> &engine() const { return m_engine; }
    /// Whether the engine draws with OpenGL. If not, it cannot turn pictures.
    virtual bool usesOpenGL() const = 0;

    /// Makes the texture anew, in this size.
    virtual void resize(QSize pixels) = 0;
    virtual unsigned texture() const = 0;

    /// `notify` is called, from any thread, when there may be something new to draw.
    void setUpdateCallback(void (*notify)(void *), void *argument);
    enum class Update {
        None,
        Redraw, ///< The picture that was drawn last, differently.
        NewPicture,
    };
    /// What there is to draw. To be asked after each notification.
    Update takeUpdate();
    virtual void draw() = 0;
    /// Instead of drawing it. The engine waits until what there is to draw is dealt with.
    void skip();
    /// What was drawn last, squeezed into `size` pixels of 32 bits.
    virtual QImage copy(QSize size) = 0;

protected:
    void render(mpv_render_param *parameters);

private:
    const std::shared_ptr<MpvHandle> m_engine;
    mpv_render_context *const m_context;
};

} // namespace zeph
