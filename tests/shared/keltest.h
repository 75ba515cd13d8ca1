// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTEST_H
#define KELTEST_H

#include "literals.h"
#include "picture.h"

#include <QtCore/QStringList>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <functional>

/*
 * Base of every test class.
 *
 * A Qt warning that the test did not ask for with takeWarnings(), and a window that is still there
 * after a test function, fail that function.
 */
class KelTest : public QObject
{
    Q_OBJECT

public:
    // Everything printed with qDebug() / with a higher level since the last call.
    static QStringList takeDebugLines();
    static QStringList takeWarnings();
    // Keep what is printed, until the second call. Around each test function they are called
    // anyway.
    static void startRecording();
    static void stopRecording();

    // The path of a file that lies in the folder of the test program, built or installed.
    static QString besideProgram(const QString &name);

private Q_SLOTS:
    void init();
    void cleanup();
};

// A shown view on a scene of its own, 1:1, whose (0, 0) is the scene's (0, 0).
class KelTestView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit KelTestView(const QSize &size = QSize(400, 300));

    // Shows the view and waits for it. Add the items first.
    bool showAndWait();
    // The same for the window around it, only the first time. The next tap is not the second one of
    // a double tap that began in an earlier test.
    void showOnce();

    // The viewport position of a point of item (in the coordinates of its boundingRect()).
    QPoint at(const QGraphicsItem *item, const QPointF &itemPos) const;
    // The same for the centre of the item.
    QPoint centreOf(const QGraphicsItem *item) const;

    QGraphicsScene ownScene;

private:
    bool m_wasShown = false;
};

#define KEL_TEST_MAIN(TestClass)            \
  int main(int argc, char *argv[])          \
  {                                         \
    QApplication app(argc, argv);           \
    TestClass test;                         \
    return QTest::qExec(&test, argc, argv); \
  }

#endif
