// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include "fingers.h"

namespace {

QtMessageHandler previousHandler = nullptr;
QStringList *debugLines = nullptr;
QStringList *warnings = nullptr;

// What Qt's platform plugins say about themselves.
bool isAboutThePlatform(const QString &text)
{
    // Offscreen, whenever a popup opens.
    return text.startsWith(QLatin1String("This plugin does not support "))
        // X11, when a window is shown again before the server has reported it hidden.
        || text.contains(
            QLatin1String("QXcbWindow::setNetWmStateOnUnmappedWindow() called on mapped"));
}

void recordMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (isAboutThePlatform(text))
        return;
    QStringList *const list = type == QtDebugMsg ? debugLines : warnings;
    if (type != QtFatalMsg && list)
        list->append(text);
    else if (previousHandler)
        previousHandler(type, context, text);
}

} // namespace

QStringList KelTest::takeDebugLines()
{
    return debugLines ? std::exchange(*debugLines, QStringList()) : QStringList();
}

QStringList KelTest::takeWarnings()
{
    return warnings ? std::exchange(*warnings, QStringList()) : QStringList();
}

QString KelTest::besideProgram(const QString &name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

void KelTest::startRecording()
{
    debugLines = new QStringList;
    warnings = new QStringList;
    previousHandler = qInstallMessageHandler(recordMessage);
}

void KelTest::stopRecording()
{
    qInstallMessageHandler(previousHandler);
    delete std::exchange(debugLines, nullptr);
    delete std::exchange(warnings, nullptr);
}

void KelTest::init()
{
    startRecording();
}

void KelTest::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QStringList unexpected = takeWarnings();
    stopRecording();

    QStringList windows;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget *widget : widgets)
        windows.append(QString::fromLatin1(widget->metaObject()->className()));
    QCOMPARE(windows.join(QLatin1Char('\n')), QString());
    QCOMPARE(unexpected.join(QLatin1Char('\n')), QString());
}

KelTestView::KelTestView(const QSize &size)
{
    setWindowFlags(Qt::FramelessWindowHint);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setScene(&ownScene);
    ownScene.setSceneRect(QRectF(QPointF(), size));
    resize(size);
}

bool KelTestView::showAndWait()
{
    show();
    return QTest::qWaitForWindowExposed(this);
}

void KelTestView::showOnce()
{
    if (std::exchange(m_wasShown, true) || isVisible())
        return;
    window()->show();
    if (!QTest::qWaitForWindowExposed(window()))
        qFatal("the window has not been exposed");
    Fingers(viewport()).tap(0, QPoint(1, 1));
}

QPoint KelTestView::at(const QGraphicsItem *item, const QPointF &itemPos) const
{
    return mapFromScene(item->mapToScene(itemPos));
}

QPoint KelTestView::centreOf(const QGraphicsItem *item) const
{
    return at(item, item->boundingRect().center());
}
