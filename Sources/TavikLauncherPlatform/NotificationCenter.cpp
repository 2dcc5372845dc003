// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QObject>

#include <map>
#include <vector>

namespace Tavik {

class NotificationCenter::Registry final : public QObject
{
public:
    struct Observer
    {
        QString name;
        Handler handler;
    };
    quint64 nextId = 1;
    std::map<quint64, Observer> observers;
};

ObserverToken::ObserverToken(QObject* registry, quint64 id)
    : m_registry(registry)
    , m_id(id)
{ }

ObserverToken& ObserverToken::operator=(ObserverToken&& other) noexcept
{
    if (this != &other) {
        reset();
        m_registry = std::exchange(other.m_registry, nullptr);
        m_id = std::exchange(other.m_id, 0);
    }
    return *this;
}

void ObserverToken::reset()
{
    if (auto* registry = static_cast<NotificationCenter::Registry*>(m_registry.data())) {
        registry->observers.erase(m_id);
    }
    m_registry = nullptr;
}

NotificationCenter::NotificationCenter()
    : m_registry(std::make_unique<Registry>())
{ }

NotificationCenter::~NotificationCenter() = default;

ObserverToken NotificationCenter::addObserver(QStringView name, Handler handler)
{
    const quint64 id = m_registry->nextId++;
    m_registry->observers.emplace(id, Registry::Observer{name.toString(), std::move(handler)});
    return {m_registry.get(), id};
}

void NotificationCenter::post(QStringView name, const QString& subject)
{
    std::vector<quint64> due;
    for (const auto& [id, observer] : m_registry->observers) {
        if (observer.name == name) {
            due.push_back(id);
        }
    }
    const QPointer<Registry> registry = m_registry.get();
    for (const quint64 id : due) {
        if (!registry) {
            return;
        }
        const auto found = registry->observers.find(id);
        if (found != registry->observers.end()) {
            // A copy, because the handler may end its own observation while it runs.
            const Handler handler = found->second.handler;
            handler({name.toString(), subject});
        }
    }
}

QStringList NotificationCenter::observedNames() const
{
    QStringList names;
    for (const auto& [id, observer] : m_registry->observers) {
        names << observer.name;
    }
    return names;
}

} // namespace Tavik
