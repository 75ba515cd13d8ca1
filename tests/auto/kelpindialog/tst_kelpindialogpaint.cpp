// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"

#include <kelpindialog.h>

#include <QtGui/QPainter>

class tst_KELPinDialogPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void look_data() { addRows({{"size", {{"a", 0}, {"b", 1}, {"c", 2}, {"d", 3}}}}); }
    void look()
    {
        const QVector<QSize> sizes{{480, 272}, {800, 480}, {480, 800}, {1280, 800}};
        const QSize size = sizes.at(fetch<int>("size"));
        KelTestView view(size);
        view.ownScene.setBackgroundBrush(Qt::white);
        auto *dialog = new KELPinDialog;
        dialog->setCaption(u"Enter the PIN of the installer"_s);
        if (size.width() == 800)
            dialog->setLayoutDirection(Qt::RightToLeft);
        dialog->open(&view.ownScene);
        QVERIFY(view.showAndWait());
        QTest::keyClicks(view.viewport(), u"12"_s);
        view.viewport()->grab().save(u"pin%1.png"_s.arg(size.width() * 1000 + size.height()));
    }
};

KEL_TEST_MAIN(tst_KELPinDialogPaint)
#include "tst_kelpindialogpaint.moc"
