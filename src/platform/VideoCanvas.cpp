#include "platform/VideoCanvas.h"

#include <mpv/render_gl.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QOpenGLPixelTransferOptions>
#include <QOpenGLTexture>
#include <QVarLengthArray>

#include <cstddef>
#include <utility>
#include <vector>

namespace zeph {

namespace {

bool prefersOpenGL()
{
    const QByteArray wanted = qgetenv("ZEPH_VIDEO_CANVAS");
    if (!wanted.isEmpty())
        return wanted == "opengl";
    const auto *name = reinterpret_cast<const char *>(
        QOpenGLContext::currentContext()->functions()->glGetString(GL_RENDERER));
    const QByteArray renderer(name);
    return !renderer.contains("llvmpipe") && !renderer.contains("softpipe");
}

mpv_render_context *createContext(const MpvHandle &engine, mpv_render_param *parameters)
{
    mpv_render_context *context = nullptr;
    engine.library().render_context_create(&context, engine.get(), parameters);
    return context;
}

void *openGLFunction(void *, const char *name)
{
    return reinterpret_cast<void *>(QOpenGLContext::currentContext()->getProcAddress(name));
}

mpv_render_context *createOpenGLContext(const MpvHandle &engine)
{
    mpv_opengl_init_params openGL { openGLFunction, nullptr };
    QVarLengthArray<mpv_render_param, 4> parameters {
        { MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_OPENGL) },
        { MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &openGL },
    };
    // The display connection lets hardware decoders hand their pictures over without a copy.
#if QT_CONFIG(xcb)
    if (const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        parameters.append({ MPV_RENDER_PARAM_X11_DISPLAY, x11->display() });
#endif
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0) && QT_CONFIG(wayland)
    if (const auto *wayland = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>())
        parameters.append({ MPV_RENDER_PARAM_WL_DISPLAY, wayland->display() });
#endif
    parameters.append({ MPV_RENDER_PARAM_INVALID, nullptr });
    return createContext(engine, parameters.data());
}

mpv_render_context *createSoftwareContext(const MpvHandle &engine)
{
    mpv_render_param parameters[] = {
        { MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_SW) },
        { MPV_RENDER_PARAM_INVALID, nullptr },
    };
    return createContext(engine, parameters);
}

/// The engine draws into the texture itself.
class OpenGLCanvas final : public VideoCanvas {
public:
    using VideoCanvas::VideoCanvas;

    bool usesOpenGL() const override { return true; }

    void resize(QSize pixels) override
    {
        m_target = std::make_unique<QOpenGLFramebufferObject>(pixels);
    }

    unsigned texture() const override { return m_target->texture(); }

    void draw() override
    {
        mpv_opengl_fbo target { int(m_target->handle()), m_target->width(), m_target->height(), 0 };
        int dontFlip = 0;
        int dontWait = 0;
        mpv_render_param parameters[] = {
            { MPV_RENDER_PARAM_OPENGL_FBO, &target },
            { MPV_RENDER_PARAM_FLIP_Y, &dontFlip },
            { MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &dontWait },
            { MPV_RENDER_PARAM_INVALID, nullptr },
        };
        render(parameters);
    }

    // Only a step to half the size takes all pixels into account. Two steps are as good as many to
    // those who look for large things.
    QImage copy(QSize size) override
    {
        QOpenGLFramebufferObject halfway(size * 2);
        QOpenGLFramebufferObject small(size);
        squeeze(*m_target, halfway);
        squeeze(halfway, small);
        return small.toImage(false).convertToFormat(QImage::Format_RGB32);
    }

private:
    static void squeeze(QOpenGLFramebufferObject &from, QOpenGLFramebufferObject &to)
    {
        QOpenGLFramebufferObject::blitFramebuffer(&to, QRect(QPoint(), to.size()), &from,
            QRect(QPoint(), from.size()), GL_COLOR_BUFFER_BIT, GL_LINEAR);
    }

    std::unique_ptr<QOpenGLFramebufferObject> m_target;
};

/// The engine draws into memory, which is then copied to the texture.
class SoftwareCanvas final : public VideoCanvas {
public:
    using VideoCanvas::VideoCanvas;

    bool usesOpenGL() const override { return false; }

    void resize(QSize pixels) override
    {
        // The engine is fastest on rows that begin at multiples of 64 bytes.
        constexpr int alignment = 64;
        m_size = pixels;
        m_stride = (size_t(pixels.width()) * bytesPerPixel + alignment - 1) / alignment * alignment;
        m_memory.resize(m_stride * size_t(pixels.height()) + alignment);
        void *start = m_memory.data();
        size_t space = m_memory.size();
        m_pixels = std::align(alignment, space - alignment, start, space);

        m_texture = std::make_unique<QOpenGLTexture>(QOpenGLTexture::Target2D);
        m_texture->setFormat(QOpenGLTexture::RGBA8_UNorm);
        m_texture->setSize(pixels.width(), pixels.height());
        m_texture->setMipLevels(1);
        m_texture->allocateStorage(QOpenGLTexture::RGBA, QOpenGLTexture::UInt8);
    }

    unsigned texture() const override { return m_texture->textureId(); }

    void draw() override
    {
        int size[] { m_size.width(), m_size.height() };
        int dontWait = 0;
        mpv_render_param parameters[] = {
            { MPV_RENDER_PARAM_SW_SIZE, size },
            { MPV_RENDER_PARAM_SW_FORMAT, const_cast<char *>("rgb0") },
            { MPV_RENDER_PARAM_SW_STRIDE, &m_stride },
            { MPV_RENDER_PARAM_SW_POINTER, m_pixels },
            { MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &dontWait },
            { MPV_RENDER_PARAM_INVALID, nullptr },
        };
        render(parameters);

        QOpenGLPixelTransferOptions layout;
        layout.setRowLength(int(m_stride / bytesPerPixel));
        m_texture->setData(QOpenGLTexture::RGBA, QOpenGLTexture::UInt8,
            static_cast<const void *>(m_pixels), &layout);
    }

    QImage copy(QSize size) override
    {
        const QImage image(static_cast<const uchar *>(m_pixels), m_size.width(), m_size.height(),
            qsizetype(m_stride), QImage::Format_RGBX8888);
        // Averaging over all pixels of 2160p would take longer than drawing them. Those of the step
        // before the last are enough.
        const bool isLarge = image.width() > size.width() * 2 || image.height() > size.height() * 2;
        const QImage halfway = isLarge ? image.scaled(size * 2) : image;
        return halfway.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    }

private:
    static constexpr size_t bytesPerPixel = 4;

    QSize m_size;
    size_t m_stride = 0;
    std::vector<std::byte> m_memory;
    void *m_pixels = nullptr;
    std::unique_ptr<QOpenGLTexture> m_texture;
};

} // namespace

std::unique_ptr<VideoCanvas> VideoCanvas::create(std::shared_ptr<MpvHandle> engine)
{
    if (prefersOpenGL()) {
        if (mpv_render_context *context = createOpenGLContext(*engine))
            return std::make_unique<OpenGLCanvas>(std::move(engine), context);
    }
    if (mpv_render_context *context = createSoftwareContext(*engine))
        return std::make_unique<SoftwareCanvas>(std::move(engine), context);
    return nullptr;
}

VideoCanvas::VideoCanvas(std::shared_ptr<MpvHandle> engine, mpv_render_context *context)
    : m_engine(std::move(engine)), m_context(context)
{
}

VideoCanvas::~VideoCanvas()
{
    // Taking the canvas from under the engine would fail the item that is open. Waits for the
    // engine, which may wait in turn for its last picture to be drawn, but no longer than 0.2 s.
    m_engine->library().set_property_string(m_engine->get(), "vo", "null");
    m_engine->library().render_context_free(m_context);
}

void VideoCanvas::setUpdateCallback(void (*notify)(void *), void *argument)
{
    m_engine->library().render_context_set_update_callback(m_context, notify, argument);
}

VideoCanvas::Update VideoCanvas::takeUpdate()
{
    const MpvLibrary &mpv = m_engine->library();
    if (!(mpv.render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME))
        return Update::None;
    mpv_render_frame_info info {};
    mpv.render_context_get_info(m_context, { MPV_RENDER_PARAM_NEXT_FRAME_INFO, &info });
    const bool isNew = info.flags & MPV_RENDER_FRAME_INFO_PRESENT
        && !(info.flags & (MPV_RENDER_FRAME_INFO_REDRAW | MPV_RENDER_FRAME_INFO_REPEAT));
    return isNew ? Update::NewPicture : Update::Redraw;
}

void VideoCanvas::skip()
{
    int skips = 1;
    mpv_render_param parameters[] = {
        { MPV_RENDER_PARAM_SKIP_RENDERING, &skips },
        { MPV_RENDER_PARAM_INVALID, nullptr },
    };
    render(parameters);
}

void VideoCanvas::render(mpv_render_param *parameters)
{
    m_engine->library().render_context_render(m_context, parameters);
}

} // namespace zeph
