// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryprocess.h"
#include "keltest.h"

#include <QtCore/QTemporaryDir>

#include <memory>

namespace {

constexpr int patienceMs = 20000;
constexpr int holdMs = 600; // the long press comes after 500

const char *const title = "KELGdiControl Gallery";

} // namespace

// Drives the gallery on an X server of its own, as a user would.
class tst_GalleryPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void tapIsAClick();
    void holdIsALongPress();
    void draggedOffIsNoClick();
    void doubleClickKeepsBothTaps();
    void hoverIsReported();
    void linesHaveTimeNameAndSignal();
    void navigationChangesThePage();
    void holdOpensTheMenu();
    void embeddedViewTakesThePointer();
    void logGoesToStandardOutput();

private:
    QString logPath() const;
    bool xdotool(const QStringList &arguments);
    void startGallery(const QString &page, const QString &log);
    void stopGallery();
    QRect geometryOf(const QString &page, const QString &name) const;
    bool moveTo(const QPoint &pos);
    bool tap(const QPoint &pos);
    void quit();
    QStringList lines() const;
    // The same without time and positions, and without those about hovering.
    QStringList gestures() const;

    QTemporaryDir m_directory;
    QProcessEnvironment m_headless;
    QProcessEnvironment m_display;
    QProcess m_server;
    std::unique_ptr<QProcess> m_gallery;
    QPoint m_button; // the middle of "Press me"
};

void tst_GalleryPointer::initTestCase()
{
    QVERIFY(m_directory.isValid());
    m_headless = Gallery::environment(m_directory.path());
    m_server.start(
        QStringLiteral(KEL_XVFB),
        {"-displayfd", "1", "-screen", "0", "800x480x24", "-nolisten", "tcp", "-noreset"});
    QVERIFY(m_server.waitForReadyRead(patienceMs));
    QTRY_VERIFY_WITH_TIMEOUT(m_server.canReadLine(), patienceMs);
    m_display = m_headless;
    m_display.insert("DISPLAY", ':' + QString::fromLatin1(m_server.readLine().trimmed()));
    m_display.insert("QT_QPA_PLATFORM", "xcb");
    // Neither is needed here, and both keep memory to the end.
    m_display.insert("QT_XCB_GL_INTEGRATION", "none");
    m_display.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    m_button = geometryOf("push-button", "press-me").center();
    QVERIFY(!m_button.isNull());
}

void tst_GalleryPointer::cleanupTestCase()
{
    stopGallery();
    m_server.terminate();
    QVERIFY(m_server.waitForFinished(patienceMs));
}

void tst_GalleryPointer::tapIsAClick()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"click", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    QCOMPARE(
        gestures(),
        QStringList({"Press me: mousePress", "Press me: mouseRelease", "Press me: mouseClicked"}));
}

void tst_GalleryPointer::holdIsALongPress()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"mousedown", "1"}));
    QTest::qWait(holdMs);
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 2, patienceMs);
    QVERIFY(xdotool({"mouseup", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    QCOMPARE(gestures(),
             QStringList(
                 {"Press me: mousePress", "Press me: mouseLongPress", "Press me: mouseRelease"}));
}

void tst_GalleryPointer::draggedOffIsNoClick()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"mousedown", "1"}));
    QVERIFY(moveTo(QPoint(5, 5)) && xdotool({"mouseup", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 2, patienceMs);
    quit();
    QCOMPARE(gestures(), QStringList({"Press me: mousePress", "Press me: mouseRelease"}));
}

void tst_GalleryPointer::doubleClickKeepsBothTaps()
{
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button) && xdotool({"click", "--repeat", "2", "--delay", "50", "1"}));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 7, patienceMs);
    quit();
    QCOMPARE(
        gestures(),
        QStringList({"Press me: mousePress", "Press me: mouseRelease", "Press me: mouseClicked",
                     "Press me: mousePress", "Press me: mouseDoubleClicked",
                     "Press me: mouseRelease", "Press me: mouseClicked"}));
}

void tst_GalleryPointer::hoverIsReported()
{
    QVERIFY(moveTo(QPoint(5, 5)));
    startGallery("push-button", logPath());
    QVERIFY(moveTo(m_button));
    QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 1, patienceMs);
    QVERIFY(moveTo(QPoint(5, 5)));
    QTRY_COMPARE_WITH_TIMEOUT(lines().size(), 2, patienceMs);
    QVERIFY(lines().at(0).endsWith(" Press me: mouseEnter"));
    QVERIFY(lines().at(1).endsWith(" Press me: mouseLeave"));
    quit();
}

void tst_GalleryPointer::linesHaveTimeNameAndSignal()
{
    startGallery("push-button", logPath());
    QVERIFY(tap(m_button));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 3, patienceMs);
    quit();
    const QRegularExpression form(
        "\\A([0-9]+\\.[0-9]{3}) Press me: "
        "(mouse(Clicked|Enter|Leave)|mouse(Press|Release) \\([0-9]+, [0-9]+\\))\\z");
    double last = 0;
    const QStringList logged = lines();
    for (const QString &line : logged) {
        const QRegularExpressionMatch match = form.match(line);
        QVERIFY2(match.hasMatch(), qPrintable(line));
        QVERIFY(match.captured(1).toDouble() >= last);
        last = match.captured(1).toDouble();
    }
    // Placed without item positions, the button has the coordinates of the window.
    const QString position = QString("(%1, %2)").arg(m_button.x()).arg(m_button.y());
    QCOMPARE(logged.filter(position).size(), 2);
}

void tst_GalleryPointer::navigationChangesThePage()
{
    startGallery("round-rect", logPath());
    QVERIFY(tap(geometryOf("round-rect", "nav-push-button").center()));
    // The tap itself is not logged: the new page is there once its button answers.
    const auto answers = [this] { return tap(m_button) && !gestures().isEmpty(); };
    QTRY_VERIFY_WITH_TIMEOUT(answers(), patienceMs);
    quit();
    QVERIFY(gestures().first().startsWith("Press me: "));
}

void tst_GalleryPointer::holdOpensTheMenu()
{
    startGallery("round-rect", logPath());
    const QRect tile = geometryOf("round-rect", "hold-for-menu");
    QVERIFY(moveTo(tile.center()) && xdotool({"mousedown", "1"}));
    QTest::qWait(holdMs);
    QTRY_COMPARE_WITH_TIMEOUT(gestures(), QStringList{"Hold for a menu: mouseLongPress"},
                              patienceMs);
    QVERIFY(xdotool({"mouseup", "1"}));
    const auto choose = [this] {
        return xdotool({"key", "Down", "Return"}) && gestures().size() > 1;
    };
    QTRY_VERIFY_WITH_TIMEOUT(choose(), patienceMs);
    QCOMPARE(gestures().at(1), "Hold for a menu: menu entry Copy");
    quit();
}

void tst_GalleryPointer::embeddedViewTakesThePointer()
{
    startGallery("content-view", logPath());
    const QRect sizeButton = geometryOf("content-view", "cycle-size");
    const QRect stateButton = geometryOf("content-view", "cycle-state");
    // The keypad's key 5 is in the middle of the room below the buttons.
    const QRect frame = geometryOf("content-view", "embedded-frame");
    QVERIFY(tap(frame.center()));
    QTRY_COMPARE_WITH_TIMEOUT(
        gestures(),
        QStringList({"Key 5: mousePress", "Key 5: mouseRelease", "Key 5: mouseClicked"}),
        patienceMs);
    QVERIFY(tap(sizeButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: Size: medium", patienceMs);
    QVERIFY(tap(frame.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().size(), 7, patienceMs);
    QVERIFY(tap(stateButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: State: disabled", patienceMs);
    QVERIFY(tap(frame.center()));
    QVERIFY(tap(stateButton.center()));
    QTRY_COMPARE_WITH_TIMEOUT(gestures().last(), "Content view: State: enabled", patienceMs);
    QCOMPARE(gestures().size(), 9);
    quit();
}

void tst_GalleryPointer::logGoesToStandardOutput()
{
    startGallery("push-button", "-");
    QVERIFY(tap(m_button));
    QByteArray out;
    const auto hasClick = [&] {
        out += m_gallery->readAllStandardOutput();
        return out.contains("Press me: mouseClicked\n");
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasClick(), patienceMs);
    quit();
}

QString tst_GalleryPointer::logPath() const
{
    return m_directory.filePath("gallery.log");
}

bool tst_GalleryPointer::xdotool(const QStringList &arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_display);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(QStringLiteral(KEL_XDOTOOL), arguments);
    return process.waitForFinished(patienceMs) && process.exitCode() == 0;
}

void tst_GalleryPointer::startGallery(const QString &page, const QString &log)
{
    stopGallery();
    QFile::remove(logPath());
    m_gallery = std::make_unique<QProcess>();
    m_gallery->setProcessEnvironment(m_display);
    m_gallery->start(QStringLiteral(KEL_GALLERY), {"--page", page, "--log", log});
    QVERIFY(m_gallery->waitForStarted(patienceMs));
    QVERIFY(xdotool({"search", "--sync", "--onlyvisible", "--name", title}));
}

// After a test that failed half-way.
void tst_GalleryPointer::stopGallery()
{
    if (m_gallery && m_gallery->state() != QProcess::NotRunning) {
        m_gallery->kill();
        m_gallery->waitForFinished(patienceMs);
    }
}

QRect tst_GalleryPointer::geometryOf(const QString &page, const QString &name) const
{
    const Gallery::Result result = Gallery::run({"--page", page, "--geometry-of", name},
                                                m_headless);
    const QStringList numbers = result.out.trimmed().split(QRegularExpression("[, x]"));
    return numbers.size() != 4 ? QRect()
                               : QRect(numbers.at(0).toInt(), numbers.at(1).toInt(),
                                       numbers.at(2).toInt(), numbers.at(3).toInt());
}

bool tst_GalleryPointer::moveTo(const QPoint &pos)
{
    return xdotool({"mousemove", QString::number(pos.x()), QString::number(pos.y())});
}

bool tst_GalleryPointer::tap(const QPoint &pos)
{
    return moveTo(pos) && xdotool({"click", "1"});
}

void tst_GalleryPointer::quit()
{
    QVERIFY(xdotool({"key", "ctrl+q"}));
    QVERIFY(m_gallery->waitForFinished(patienceMs));
    QCOMPARE(m_gallery->readAllStandardError(), QByteArray());
    QCOMPARE(m_gallery->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_gallery->exitCode(), 0);
}

QStringList tst_GalleryPointer::lines() const
{
    QFile file(logPath());
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

QStringList tst_GalleryPointer::gestures() const
{
    QStringList found;
    const QStringList logged = lines();
    for (QString line : logged) {
        line.remove(QRegularExpression("\\A[0-9.]+ "))
            .remove(QRegularExpression(" \\([-0-9, ]+\\)\\z"));
        if (!line.endsWith("mouseEnter") && !line.endsWith("mouseLeave"))
            found.append(line);
    }
    return found;
}

KEL_TEST_MAIN(tst_GalleryPointer)
#include "tst_gallerypointer.moc"
