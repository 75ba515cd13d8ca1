// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef XSERVER_H
#define XSERVER_H

#include <QtCore/QProcess>

// The X server named by KEL_XVFB, for as long as this lives. Make it before the application object.
class XServer
{
public:
    XServer()
    {
        const QString program = qEnvironmentVariable("KEL_XVFB");
        if (program.isEmpty())
            return;
        // With -terminate it also goes when the test crashes.
        m_process.start(program,
                        {QStringLiteral("-displayfd"), QStringLiteral("1"),
                         QStringLiteral("-screen"), QStringLiteral("0"),
                         QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                         QStringLiteral("tcp"), QStringLiteral("-terminate")});
        while (!m_process.canReadLine() && m_process.waitForReadyRead(patienceMs)) { }
        const QByteArray display = m_process.readLine().trimmed();
        if (display.isEmpty())
            qFatal("%s has not started", qPrintable(program));
        qputenv("DISPLAY", ':' + display);
    }

    ~XServer()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.terminate();
        m_process.waitForFinished(patienceMs);
    }

private:
    static constexpr int patienceMs = 120000;
    QProcess m_process;
};

#endif
