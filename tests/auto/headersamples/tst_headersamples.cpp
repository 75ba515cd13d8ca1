// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "headersamples.h"
#include "keltest.h"

#include <KELContentView>
#include <KELLabel>

#include <QtTest/QtTest>

using AddSample = void (*)(QGraphicsScene *);
Q_DECLARE_METATYPE(AddSample)

// The code of the reference: what it shows can be seen.
class tst_HeaderSamples : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void samplesAreSeen_data()
    {
        QTest::addColumn<AddSample>("add");
        QTest::newRow("base") << AddSample(HeaderSamples::kelroundrectcontrolSample2);
        QTest::newRow("check box") << AddSample(HeaderSamples::kelcheckboxSample);
        QTest::newRow("combo box")
            << AddSample([](QGraphicsScene *scene) { Screen().kelcomboboxSample2(scene); });
        QTest::newRow("progress bar") << AddSample(HeaderSamples::kelprocessbarSample);
        QTest::newRow("push button") << AddSample(HeaderSamples::kelpushbuttonSample);
        QTest::newRow("radio box") << AddSample(HeaderSamples::kelradioboxSample);
        QTest::newRow("slider") << AddSample(HeaderSamples::kelslidecontrolSample);
        QTest::newRow("layout") << AddSample(
            [](QGraphicsScene *scene) { HeaderSamples::kellayoutSample(scene, new KELLabel); });
    }

    void samplesAreSeen()
    {
        QGraphicsScene scene;
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QFETCH(AddSample, add);
        add(&scene);
        QGraphicsView view(&scene);
        view.setBackgroundBrush(QColor(Qt::gray));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(coloursOf(view.viewport()->grab().toImage()) > 1);
    }

    void aContentViewIsSeenInItsWindow()
    {
        QWidget window;
        window.resize(500, 400);
        HeaderSamples::kelcontentviewSample(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(coloursOf(window.grab().toImage()) > 1);
    }

private:
    static int coloursOf(const QImage &image)
    {
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                colours.insert(image.pixel(x, y));
        }
        return colours.size();
    }
};

KEL_TEST_MAIN(tst_HeaderSamples)
#include "tst_headersamples.moc"
