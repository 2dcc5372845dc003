// SPDX-License-Identifier: MIT
//
// The floor that the ring is measured against on Wayland: the least that a program can do. An empty
// surface above all windows, in the middle of the screen, which a call over the session bus shows
// and hides again, the same call that the ring gets.
//
//   EmptyLayer    (prints "ready" when org.tavik.EmptyLayer is on the bus)

#include <TavikLauncherPlatform/Linux/Wayland/WaylandLayer.h>

#include <QCoreApplication>
#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QVariantMap>

#include <cstdio>
#include <cstring>
#include <memory>

#include <sys/mman.h>
#include <unistd.h>

using namespace Tavik;

namespace {

constexpr int side = 352;
constexpr int pixelBytes = 4;
constexpr int halfBlack = 0x80; // In every byte of a pixel, premultiplied.

WaylandObject<wl_buffer> makeBuffer(wl_shm* memory)
{
    constexpr int bytes = side * side * pixelBytes;
    const int file = memfd_create("empty", MFD_CLOEXEC);
    if (file < 0 || ftruncate(file, bytes) != 0) {
        return {};
    }
    void* pixels = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (pixels == MAP_FAILED) {
        return {};
    }
    std::memset(pixels, halfBlack, bytes);
    wl_shm_pool* pool = wl_shm_create_pool(memory, file, bytes);
    WaylandObject<wl_buffer> buffer(
        wl_shm_pool_create_buffer(pool, 0, side, side, side * pixelBytes, WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool);
    close(file);
    return buffer;
}

class Trigger final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    Trigger(QObject* parent, WaylandConnection& connection)
        : QDBusAbstractAdaptor(parent)
        , m_connection(connection)
        , m_buffer(makeBuffer(connection.sharedMemory()))
    { }

public Q_SLOTS:
    void ActivateAction(const QString&, const QVariantList&, const QVariantMap&)
    {
        if (m_layer) {
            m_layer.reset();
            m_surface.reset();
        } else {
            show();
        }
        m_connection.flush();
    }

private:
    void show()
    {
        m_surface.reset(wl_compositor_create_surface(m_connection.compositor()));
        m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(m_connection.layerShell(),
                                                            m_surface.get(),
                                                            nullptr,
                                                            ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY,
                                                            "empty"));
        static const zwlr_layer_surface_v1_listener listener{
            .configure = &Trigger::configured, .closed = [](void*, zwlr_layer_surface_v1*) {
            }};
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &listener, this);
        zwlr_layer_surface_v1_set_size(m_layer.get(), side, side);
        wl_surface_commit(m_surface.get());
    }
    static void
    configured(void* data, zwlr_layer_surface_v1* layer, uint32_t serial, uint32_t, uint32_t)
    {
        const auto& self = *static_cast<Trigger*>(data);
        zwlr_layer_surface_v1_ack_configure(layer, serial);
        wl_surface_attach(self.m_surface.get(), self.m_buffer.get(), 0, 0);
        wl_surface_damage(self.m_surface.get(), 0, 0, side, side);
        wl_surface_commit(self.m_surface.get());
    }

    WaylandConnection& m_connection;
    WaylandObject<wl_buffer> m_buffer;
    // The part goes before what plays it.
    WaylandObject<wl_surface> m_surface;
    WaylandLayer m_layer;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    WaylandConnection connection;
    if (!connection.isComplete()) {
        std::fputs("No compositor with the layer shell.\n", stderr);
        return 1;
    }
    QObject object;
    const Trigger trigger(&object, connection);
    connection.listen();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/org/tavik/Launcher"), &object)
        || !bus.registerService(QStringLiteral("org.tavik.EmptyLayer"))) {
        std::fputs("No session bus.\n", stderr);
        return 1;
    }
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "EmptyLayer.moc"
