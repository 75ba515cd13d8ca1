// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzztargets.h"
#include "keltest.h"

#include <QtCore/QDir>

// What the fuzzer found worth keeping stays as promised, also without the fuzzer.
class tst_FuzzCorpus : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyTargetHasACorpus();
    void fileIsAsPromised_data();
    void fileIsAsPromised();

private:
    static QDir folder(const KelFuzz::Target &target)
    {
        return QDir(QStringLiteral(":/corpus/") + QLatin1String(target.name));
    }
};

void tst_FuzzCorpus::everyTargetHasACorpus()
{
    for (const KelFuzz::Target &target : KelFuzz::targets)
        QVERIFY2(!folder(target).isEmpty(), target.name);
}

void tst_FuzzCorpus::fileIsAsPromised_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("path");
    for (size_t i = 0; i < std::size(KelFuzz::targets); ++i) {
        const char *const name = KelFuzz::targets[i].name;
        const QDir files = folder(KelFuzz::targets[i]);
        QTest::addRow("%s, empty", name) << int(i) << QString();
        const QStringList entries = files.entryList(QDir::Files, QDir::Name);
        for (const QString &entry : entries)
            QTest::addRow("%s, %s", name, qPrintable(entry)) << int(i) << files.filePath(entry);
    }
}

void tst_FuzzCorpus::fileIsAsPromised()
{
    QFETCH(int, target);
    QFETCH(QString, path);
    QByteArray bytes;
    if (!path.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        bytes = file.readAll();
    }
    QCOMPARE(KelFuzz::run(KelFuzz::targets[target], bytes), QString());
}

KEL_TEST_MAIN(tst_FuzzCorpus)
#include "tst_fuzzcorpus.moc"
