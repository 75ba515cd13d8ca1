// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "runningexample.h"

#include <KELPushButton>

// The first program of the README.
class tst_ExampleButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        QCOMPARE(windows.size(), 1);
        m_view = qobject_cast<KELContentView *>(windows.first());
        QVERIFY(m_view && QTest::qWaitForWindowExposed(m_view));
    }

    void itIsSeenWithoutACompositor()
    {
        const QImage shown = shownOnBlack();
        QSet<QRgb> colours;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                colours.insert(shown.pixel(x, y));
        }
        QVERIFY(colours.contains(0xffffffff)); // the ground
        QVERIFY(colours.contains(0xff000000)); // the caption
    }

    void aTapStarts()
    {
        QTest::ignoreMessage(QtDebugMsg, "started");
        const auto *button = find<KELPushButton>(m_view);
        QVERIFY(button);
        tap(m_view, button->sceneBoundingRect().center());
    }

    // With KEL_UPDATE_PICTURES=1 the picture is made anew.
    void thePictureOfTheReadmeShowsIt()
    {
        const QString path = qEnvironmentVariable("KEL_README_PICTURE");
        if (path.isEmpty() || !QFile::exists(QFileInfo(path).path()))
            QSKIP("the sources are not here");
#ifndef Q_PROCESSOR_X86_64
        QSKIP("other processors round differently");
#endif
        m_view->viewport()->update();
        const QImage shown = shownOnBlack();
        if (qEnvironmentVariableIsSet("KEL_UPDATE_PICTURES"))
            QVERIFY(shown.save(path));
        QCOMPARE(QImage(path).convertToFormat(shown.format()), shown);
    }

private:
    // As an X server without a compositor shows it: what is translucent is black.
    QImage shownOnBlack() const
    {
        QImage image(m_view->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        m_view->QWidget::render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    KELContentView *m_view = nullptr;
};

static void start()
{
    runInTheExample<tst_ExampleButton>();
}
Q_COREAPP_STARTUP_FUNCTION(start)

#include "tst_examplebutton.moc"
