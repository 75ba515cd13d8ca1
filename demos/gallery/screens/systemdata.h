// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SYSTEMDATA_H
#define SYSTEMDATA_H

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

/*
 * What the kernel says about the machine, once a second while it is wanted. What it does not say is
 * -1, or empty.
 */
class SystemData : public QObject
{
    Q_OBJECT

public:
    // root is where proc and sys are.
    explicit SystemData(const QString &root = QStringLiteral("/"), QObject *parent = nullptr);

    void start();
    void stop();
    // Reads everything now.
    void read();

    double load() const { return m_load; } // percent, of all cores
    const QVector<double> &loads() const { return m_loads; } // the last 60
    int cores() const { return m_cores; }
    double gigahertz() const { return m_gigahertz; }
    qint64 memoryUsed() const { return m_memoryUsed; } // bytes
    qint64 memoryTotal() const { return m_memoryTotal; }
    qint64 storageFree() const { return m_storageFree; }
    qint64 storageTotal() const { return m_storageTotal; }
    double celsius() const { return m_celsius; }
    double celsiusLimit() const { return m_celsiusLimit; }
    double backlight() const { return m_backlight; } // percent
    bool canSetBacklight() const;
    void setBacklight(double percent);
    qint64 uptimeSeconds() const { return m_uptimeSeconds; }

    QStringList interfaces() const { return m_interfaces; }
    QString currentInterface() const { return m_interface; }
    void setCurrentInterface(const QString &name);
    double received() const { return m_received; } // bytes a second
    double sent() const { return m_sent; }
    double wifi() const { return m_wifi; } // percent of the best quality

Q_SIGNALS:
    void changed();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(SystemData)
    QByteArray contentOf(const QString &path) const;
    double numberIn(const QString &path) const;
    void find();
    void readLoad();
    void readMemory();
    void readStorage();
    void readNetwork();

    const QString m_root;
    QBasicTimer m_timer;
    QElapsedTimer m_sinceNetwork;
    QString m_thermalPath;
    QString m_backlightPath;
    qint64 m_busyTicks = -1;
    qint64 m_allTicks = -1;
    double m_load = -1;
    QVector<double> m_loads;
    int m_cores = -1;
    double m_gigahertz = -1;
    qint64 m_memoryUsed = -1;
    qint64 m_memoryTotal = -1;
    qint64 m_storageFree = -1;
    qint64 m_storageTotal = -1;
    double m_celsius = -1;
    double m_celsiusLimit = -1;
    double m_backlight = -1;
    qint64 m_uptimeSeconds = -1;
    QStringList m_interfaces;
    QString m_interface;
    bool m_isChosen = false; // or that with the most traffic, at first
    double m_receivedBytes = -1;
    double m_sentBytes = -1;
    double m_received = -1;
    double m_sent = -1;
    double m_wifi = -1;
};

#endif
