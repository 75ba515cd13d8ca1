// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

namespace {

QtMessageHandler previousHandler = nullptr;
QStringList *debugLines = nullptr;
QStringList *warnings = nullptr;

// What Qt's platform plugins say about themselves.
bool isAboutThePlatform(const QString &text)
{
    // Offscreen, whenever a popup opens.
    return text.startsWith(QLatin1String("This plugin does not support "))
        // X11, when a window is shown again before the server has told that it is hidden.
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

QTouchDevice *touchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

QString saved(const QImage &image, const QString &what)
{
    const QString name = QStringLiteral("%1_%2_%3.png")
                             .arg(QString::fromLatin1(QTest::currentTestFunction()),
                                  QString::fromUtf8(QTest::currentDataTag())
                                      .replace(QRegularExpression(QStringLiteral("\\W+")),
                                               QStringLiteral("-")),
                                  what);
    image.save(name);
    return name;
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

void KelTest::init()
{
    debugLines = new QStringList;
    warnings = new QStringList;
    previousHandler = qInstallMessageHandler(recordMessage);
}

void KelTest::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QStringList unexpected = takeWarnings();
    qInstallMessageHandler(previousHandler);
    delete std::exchange(debugLines, nullptr);
    delete std::exchange(warnings, nullptr);

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

QPoint KelTestView::at(const QGraphicsItem *item, const QPointF &itemPos) const
{
    return mapFromScene(item->mapToScene(itemPos));
}

QPoint KelTestView::centreOf(const QGraphicsItem *item) const
{
    return at(item, item->boundingRect().center());
}

void KelTestView::press(const QPoint &pos, Qt::MouseButton button)
{
    QTest::mousePress(viewport(), button, Qt::NoModifier, pos);
}

void KelTestView::move(const QPoint &pos)
{
    // QTest::mouseMove() holds no button.
    QMouseEvent event(QEvent::MouseMove, pos, viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport(), &event);
}

void KelTestView::release(const QPoint &pos, Qt::MouseButton button)
{
    QTest::mouseRelease(viewport(), button, Qt::NoModifier, pos);
}

void KelTestView::click(const QPoint &pos)
{
    press(pos);
    release(pos);
}

void KelTestView::doubleClickPress(const QPoint &pos)
{
    QMouseEvent event(QEvent::MouseButtonDblClick, pos, viewport()->mapToGlobal(pos),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport(), &event);
}

void KelTestView::touchPress(const QPoint &pos)
{
    QTest::touchEvent(viewport(), touchScreen()).press(0, pos, viewport());
}

void KelTestView::touchMove(const QPoint &pos)
{
    QTest::touchEvent(viewport(), touchScreen()).move(0, pos, viewport());
}

void KelTestView::touchRelease(const QPoint &pos)
{
    QTest::touchEvent(viewport(), touchScreen()).release(0, pos, viewport());
}

QImage KelImage::draw(const QSize &size, qreal scale, const std::function<void(QPainter *)> &draw)
{
    QImage image(QSize(qRound(size.width() * scale), qRound(size.height() * scale)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(200, 220, 240));
    QPainter painter(&image);
    painter.scale(scale, scale);
    draw(&painter);
    return image;
}

QImage KelImage::paint(QGraphicsItem *item, const QSize &size, qreal scale)
{
    return draw(size, scale, [item](QPainter *painter) {
        QStyleOptionGraphicsItem option;
        item->paint(painter, &option, nullptr);
    });
}

QString KelImage::difference(const QImage &actual, const QImage &expected)
{
    if (actual == expected)
        return QString();
    if (actual.size() != expected.size())
        return QStringLiteral("different sizes");
    int count = 0;
    QPoint first(-1, -1);
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) == expected.pixel(x, y))
                continue;
            if (count++ == 0)
                first = QPoint(x, y);
        }
    }
    return QStringLiteral("%1 pixels differ, first (%2, %3); see %4 and %5")
        .arg(QString::number(count), QString::number(first.x()), QString::number(first.y()),
             saved(actual, QStringLiteral("actual")), saved(expected, QStringLiteral("expected")));
}

QString KelImage::pixelsOutside(QGraphicsItem *item, qreal scale)
{
    constexpr qreal marginPx = 100;
    const QRectF bounds = item->boundingRect();
    const QRectF canvas = bounds.adjusted(-marginPx, -marginPx, marginPx, marginPx);
    const auto render = [&](bool withItem) {
        return draw(canvas.size().toSize(), scale, [&](QPainter *painter) {
            painter->translate(-canvas.topLeft());
            if (withItem) {
                QStyleOptionGraphicsItem option;
                item->paint(painter, &option, nullptr);
            }
        });
    };
    const QImage blank = render(false);
    const QImage painted = render(true);
    const QRectF scaled(marginPx * scale, marginPx * scale, bounds.width() * scale,
                        bounds.height() * scale);
    const QRect allowed = scaled.toAlignedRect();
    for (int y = 0; y < painted.height(); ++y) {
        for (int x = 0; x < painted.width(); ++x) {
            if (allowed.contains(x, y) || painted.pixel(x, y) == blank.pixel(x, y))
                continue;
            return QStringLiteral("pixel (%1, %2) lies outside (%3, %4, %5, %6); see %7")
                .arg(x)
                .arg(y)
                .arg(allowed.x())
                .arg(allowed.y())
                .arg(allowed.width())
                .arg(allowed.height())
                .arg(saved(painted, QStringLiteral("outside")));
        }
    }
    return QString();
}
