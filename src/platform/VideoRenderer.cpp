#include "platform/VideoRenderer.h"

#include <mpv/render_gl.h>

#include <QGuiApplication>
#include <QOpenGLContext>
#include <QQuickOpenGLUtils>
#include <QQuickWindow>
#include <QSGTexture>
#include <QVarLengthArray>

#include <utility>

namespace zeph {

namespace {

void *openGLFunction(void *, const char *name)
{
    return reinterpret_cast<void *>(QOpenGLContext::currentContext()->getProcAddress(name));
}

mpv_render_context *createContext(const MpvHandle &engine)
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

    mpv_render_context *context = nullptr;
    engine.library().render_context_create(&context, engine.get(), parameters.data());
    return context;
}

} // namespace

VideoRenderer::VideoRenderer(QQuickWindow *window, std::shared_ptr<MpvHandle> engine)
    : m_window(window)
    , m_engine(std::move(engine))
    , m_context(createContext(*m_engine))
{
    setOwnsTexture(true);
    if (!m_context)
        return;
    m_engine->library().render_context_set_update_callback(
        m_context, [](void *renderer) { Q_EMIT static_cast<VideoRenderer *>(renderer)->frameReady(); },
        this);
    connect(m_window, &QQuickWindow::beforeRendering, this, &VideoRenderer::drawFrame,
            Qt::DirectConnection);
}

VideoRenderer::~VideoRenderer()
{
    if (m_context)
        m_engine->library().render_context_free(m_context);
}

void VideoRenderer::setGeometry(const QRectF &rect, double devicePixelRatio)
{
    const QSize pixels = (rect.size() * devicePixelRatio).toSize().expandedTo({ 1, 1 });
    if (!m_target || m_target->size() != pixels)
        resizeTexture(pixels);
    setRect(rect);
    markDirty(DirtyMaterial);
}

void VideoRenderer::resizeTexture(QSize pixels)
{
    // No depth or stencil buffer, and no alpha in the texture: blending a picture that covers
    // everything would double the cost of drawing it without a GPU.
    m_target = std::make_unique<QOpenGLFramebufferObject>(pixels);
    setTexture(QNativeInterface::QSGOpenGLTexture::fromNative(m_target->texture(), m_window, pixels));
    setFiltering(QSGTexture::Nearest);
    m_redraw = true;
}

void VideoRenderer::drawFrame()
{
    const MpvLibrary &mpv = m_engine->library();
    const bool newFrame = mpv.render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME;
    if (!m_target || (!newFrame && !m_redraw))
        return;
    m_redraw = false;

    mpv_opengl_fbo target { int(m_target->handle()), m_target->width(), m_target->height(), 0 };
    int dontFlip = 0;
    int dontWait = 0;
    mpv_render_param parameters[] = {
        { MPV_RENDER_PARAM_OPENGL_FBO, &target },
        { MPV_RENDER_PARAM_FLIP_Y, &dontFlip },
        { MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &dontWait },
        { MPV_RENDER_PARAM_INVALID, nullptr },
    };
    m_window->beginExternalCommands();
    QQuickOpenGLUtils::resetOpenGLState();
    mpv.render_context_render(m_context, parameters);
    QQuickOpenGLUtils::resetOpenGLState();
    m_window->endExternalCommands();
}

} // namespace zeph
