// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "systemdata.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStorageInfo>
#include <QtCore/QTimerEvent>

namespace {

constexpr int periodMs = 1000;
constexpr int keptLoads = 60;
constexpr double kilobyte = 1024;
constexpr double bestWifi = 70; // of the usual drivers

// The number behind a name such as "MemTotal:", or -1.
double numberAfter(const QByteArray &text, const char *name)
{
    const int at = text.indexOf(name);
    if (at < 0)
        return -1;
    const int from = at + int(qstrlen(name));
    const int end = text.indexOf('\n', from);
    const QByteArray line = text.mid(from, end < 0 ? -1 : end - from).simplified();
    bool isNumber = false;
    const double number = line.split(' ').first().toDouble(&isNumber);
    return isNumber ? number : -1;
}

} // namespace

SystemData::SystemData(const QString &root, QObject *parent) : QObject(parent), m_root(root)
{
    find();
}

void SystemData::start()
{
    if (m_timer.isActive())
        return;
    read();
    m_timer.start(periodMs, Qt::CoarseTimer, this);
}

void SystemData::stop()
{
    m_timer.stop();
}

void SystemData::read()
{
    readLoad();
    readMemory();
    readStorage();
    readNetwork();
    const double milliCelsius = m_thermalPath.isEmpty()
        ? -1
        : numberIn(m_thermalPath + QLatin1String("temp"));
    m_celsius = milliCelsius < 0 ? -1 : milliCelsius / 1000;
    m_uptimeSeconds = qint64(numberIn(QStringLiteral("proc/uptime")));
    if (!m_backlightPath.isEmpty()) {
        const double most = numberIn(m_backlightPath + QLatin1String("max_brightness"));
        const double now = numberIn(m_backlightPath + QLatin1String("brightness"));
        m_backlight = most > 0 && now >= 0 ? 100 * now / most : -1;
    }
    Q_EMIT changed();
}

bool SystemData::canSetBacklight() const
{
    return m_backlight >= 0
        && QFileInfo(m_root + m_backlightPath + QLatin1String("brightness")).isWritable();
}

void SystemData::setBacklight(double percent)
{
    const double most = numberIn(m_backlightPath + QLatin1String("max_brightness"));
    QFile file(m_root + m_backlightPath + QLatin1String("brightness"));
    if (m_backlight < 0 || most <= 0 || !file.open(QIODevice::WriteOnly))
        return;
    file.write(QByteArray::number(qRound(most * qBound(0.0, percent, 100.0) / 100)));
}

void SystemData::setCurrentInterface(const QString &name)
{
    m_interface = name;
    m_receivedBytes = m_sentBytes = m_received = m_sent = -1;
    readNetwork();
    Q_EMIT changed();
}

void SystemData::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        read();
}

QByteArray SystemData::contentOf(const QString &path) const
{
    QFile file(m_root + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double SystemData::numberIn(const QString &path) const
{
    bool isNumber = false;
    const double number = contentOf(path).simplified().split(' ').first().toDouble(&isNumber);
    return isNumber ? number : -1;
}

// What stays as long as the machine runs: no folder is listed each second.
void SystemData::find()
{
    const QByteArray processors = contentOf(QStringLiteral("proc/cpuinfo"));
    m_cores = processors.isEmpty() ? -1 : qMax(1, processors.count("processor\t"));
    const double kilohertz = numberIn(
        QStringLiteral("sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq"));
    m_gigahertz = kilohertz > 0 ? kilohertz / 1e6 : -1;
    const auto firstIn = [this](const QString &path, const char *name) {
        const QStringList found = QDir(m_root + path).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &entry : found) {
            const QString folder = path + entry + QLatin1Char('/');
            if (numberIn(folder + QLatin1String(name)) >= 0)
                return folder;
        }
        return QString();
    };
    m_thermalPath = firstIn(QStringLiteral("sys/class/thermal/"), "temp");
    m_backlightPath = firstIn(QStringLiteral("sys/class/backlight/"), "max_brightness");
    if (!m_thermalPath.isEmpty()) {
        const double limit = numberIn(m_thermalPath + QLatin1String("trip_point_0_temp"));
        m_celsiusLimit = limit > 0 ? limit / 1000 : -1;
    }
}

void SystemData::readLoad()
{
    const QByteArray text = contentOf(QStringLiteral("proc/stat"));
    const QList<QByteArray> ticks = text.left(text.indexOf('\n')).simplified().split(' ');
    if (ticks.size() < 6 || ticks.first() != "cpu") {
        m_load = -1;
        return;
    }
    qint64 all = 0;
    for (int i = 1; i < qMin(9, ticks.size()); ++i)
        all += ticks.at(i).toLongLong();
    const qint64 busy = all - ticks.at(4).toLongLong() - ticks.at(5).toLongLong(); // idle, waiting
    if (m_allTicks >= 0 && all > m_allTicks) {
        m_load = qBound(0.0, 100.0 * double(busy - m_busyTicks) / double(all - m_allTicks), 100.0);
        m_loads.append(m_load);
        if (m_loads.size() > keptLoads)
            m_loads.removeFirst();
    } else if (m_load < 0) {
        m_load = 0;
    }
    m_busyTicks = busy;
    m_allTicks = all;
}

void SystemData::readMemory()
{
    const QByteArray text = contentOf(QStringLiteral("proc/meminfo"));
    const double total = numberAfter(text, "MemTotal:");
    const double available = numberAfter(text, "MemAvailable:");
    const bool isKnown = total > 0 && available >= 0 && available <= total;
    m_memoryTotal = isKnown ? qint64(total * kilobyte) : -1;
    m_memoryUsed = isKnown ? qint64((total - available) * kilobyte) : -1;
}

void SystemData::readStorage()
{
    const QStorageInfo storage(m_root);
    const bool isKnown = storage.isValid() && storage.bytesTotal() > 0;
    m_storageTotal = isKnown ? storage.bytesTotal() : -1;
    m_storageFree = isKnown ? storage.bytesAvailable() : -1;
}

void SystemData::readNetwork()
{
    const QList<QByteArray> lines = contentOf(QStringLiteral("proc/net/dev")).split('\n');
    QStringList names;
    double received = -1;
    double sent = -1;
    double busiest = 0;
    for (const QByteArray &line : lines) {
        const int colon = line.indexOf(':');
        const QString name = QString::fromLatin1(line.left(colon).trimmed());
        const QList<QByteArray> numbers = line.mid(colon + 1).simplified().split(' ');
        if (colon < 0 || numbers.size() < 9 || name == QLatin1String("lo"))
            continue;
        names.append(name);
        busiest = qMax(busiest, numbers.at(0).toDouble());
        if (m_interface.isEmpty() || (!m_isChosen && numbers.at(0).toDouble() >= busiest))
            m_interface = name;
        if (name == m_interface) {
            received = numbers.at(0).toDouble();
            sent = numbers.at(8).toDouble();
        }
    }
    m_interfaces = names;
    m_isChosen = true;
    const double seconds = m_sinceNetwork.isValid() ? double(m_sinceNetwork.restart()) / 1000 : 0;
    if (!m_sinceNetwork.isValid())
        m_sinceNetwork.start();
    const bool isKnown = received >= 0 && m_receivedBytes >= 0 && seconds > 0;
    m_received = isKnown ? qMax(0.0, received - m_receivedBytes) / seconds : received < 0 ? -1 : 0;
    m_sent = isKnown ? qMax(0.0, sent - m_sentBytes) / seconds : sent < 0 ? -1 : 0;
    m_receivedBytes = received;
    m_sentBytes = sent;

    const QByteArray wireless = contentOf(QStringLiteral("proc/net/wireless"));
    const QList<QByteArray> fields
        = wireless.mid(wireless.lastIndexOf(':') + 1).simplified().split(' ');
    m_wifi = wireless.contains(':') && fields.size() > 2
        ? qBound(0.0, 100 * fields.at(1).toDouble() / bestWifi, 100.0)
        : -1;
}
