// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <QtCore/QLibrary>
#include <QtGui/QFontDatabase>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

// The program itself is not linked with the library.
class tst_Unload : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fontsChangeWhenTheLibraryIsGone()
    {
        const QDir folder(QCoreApplication::applicationDirPath());
        QLibrary plugin(folder.filePath(QStringLiteral("libkelcaptionplugin")));
        const auto paintCaption = plugin.resolve("paintCaption");
        QVERIFY2(paintCaption, qPrintable(plugin.errorString()));
        paintCaption();
        QVERIFY(isLibraryLoaded());
        QVERIFY(plugin.unload());
        QVERIFY(!isLibraryLoaded());
        QVERIFY(QFontDatabase::addApplicationFont(folder.filePath(QStringLiteral("icons.ttf")))
                >= 0);
    }

private:
    static bool isLibraryLoaded()
    {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libKELGdiControl");
    }
};

QTEST_MAIN(tst_Unload)
#include "tst_unload.moc"
