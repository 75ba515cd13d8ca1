// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryprocess.h"
#include "keltest.h"
#include "rows.h"

#include <QtCore/QTemporaryDir>

namespace {

// Those of 1.0, in their order; later ones may stand between them.
const QStringList firstPageNames = {u"round-rect"_s,   u"push-button"_s,      u"label"_s,
                                    u"line-item"_s,    u"check-box"_s,        u"radio-box"_s,
                                    u"progress-bar"_s, u"slide-control"_s,    u"data-bind"_s,
                                    u"dialog-base"_s,  u"non-modal-dialog"_s, u"non-modal-helper"_s,
                                    u"combo-box"_s,    u"navigation-table"_s, u"side-menu"_s,
                                    u"icon-font"_s,    u"content-view"_s,     u"text-pixmap"_s};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool fill(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Whether there is something to see.
bool hasManyColours(const QImage &image)
{
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
        if (colours.size() > 50)
            return true;
    }
    return false;
}

// A signature and table directory of a font, and nothing behind them.
QByteArray hollowFont()
{
    QByteArray bytes(512, '\0');
    bytes[1] = 1; // version 1.0
    bytes[5] = 1; // one table
    return bytes;
}

} // namespace

class tst_Gallery : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_directory.isValid());
        m_headless = Gallery::environment(m_directory.path());
        m_broken = m_headless;
        m_broken.insert(u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s);
        m_pageNames = Gallery::run({"--list"}, m_broken).out.split('\n', Qt::SkipEmptyParts);
    }

    void listHasOnePageALine()
    {
        const Gallery::Result result = Gallery::run({"--list"}, m_broken);
        QCOMPARE(result.out, m_pageNames.join('\n') + '\n');
        QStringList first = m_pageNames;
        for (const QString &name : m_pageNames) {
            if (!firstPageNames.contains(name))
                first.removeOne(name);
        }
        QCOMPARE(first, firstPageNames);
    }

    void questionsAreAnsweredWithoutDisplay_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("text");
        QTest::newRow("help") << QStringList{"--help"} << "Usage: ";
        QTest::newRow("help, short") << QStringList{"-h"} << "Usage: ";
        QTest::newRow("help names --screenshot-all")
            << QStringList{"--help"} << "--screenshot-all <dir>";
        QTest::newRow("help names --geometry-of")
            << QStringList{"--help"} << "--geometry-of <name>";
        QTest::newRow("version") << QStringList{"--version"} << "kelgdi-gallery 1.";
        QTest::newRow("list") << QStringList{"--list"} << firstPageNames.first() + '\n';
        QTest::newRow("list with a good size")
            << QStringList{"--size", "640x480", "--list"} << "round-rect\n";
    }

    void questionsAreAnsweredWithoutDisplay()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, text);
        const Gallery::Result result = Gallery::run(arguments, m_broken);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.errorLines, QStringList());
        QVERIFY2(result.out.contains(text), qPrintable(result.out));
    }

    void badArgumentsGiveOneLineAndCodeTwo_data()
    {
        const QString notAFont = path("text.ttf");
        QVERIFY(fill(notAFont, "This is only text, and long enough for a header."));
        const QString tooShort = path("short.ttf");
        QVERIFY(fill(tooShort, QByteArray("\0\1\0\0", 4)));
        const QString truncated = path("truncated.ttf");
        QVERIFY(fill(truncated, QByteArray("\0\1\0\0\0\x12\0\0\0\0\0\0", 12)));
        const QString directory = m_directory.path();

        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("what");
        const auto row = [](const char *name, const QStringList &arguments, const QString &what) {
            QTest::newRow(name) << arguments << what;
        };
        row("unknown option", {"--colour"}, "unknown option 'colour'");
        row("unknown short option", {"-x"}, "unknown option 'x'");
        row("missing value", {"--page"}, "missing value after '--page'");
        row("positional argument", {"round-rect"}, "unexpected argument 'round-rect'");
        row("argument beside --list", {"--list", "all"}, "unexpected argument 'all'");
        row("unknown page", {"--page", "clock"}, "unknown page 'clock' (see --list)");
        row("empty page name", {"--page", ""}, "unknown page '' (see --list)");
        row("page in capitals", {"--page", "Icon-Font"}, "unknown page 'Icon-Font' (see --list)");
        row("line break in a name", {"--page", "a\nb"}, "unknown page 'a b' (see --list)");
        for (const char *size : {"", "800", "800x", "x480", "800 x 480", "800X480", "-800x480",
                                 "+800x480", "800x480x1", "99x100", "100x99", "8193x100",
                                 "100x8193", "0x0", "800.5x480", "99999999999x480", "800x480\n"}) {
            const QString shown = QString(size).replace('\n', ' ');
            QTest::newRow(qPrintable("size '" + shown + '\''))
                << QStringList{"--size", size}
                << QString("bad size '%1', expected 100x100 to 8192x8192").arg(shown);
        }
        row("missing icon font", {"--icon-font", "/no/such/font.ttf"},
            "no icon font at '/no/such/font.ttf'");
        row("empty icon font", {"--icon-font", ""}, "no icon font at ''");
        row("directory as icon font", {"--icon-font", directory},
            QString("cannot read icon font '%1'").arg(directory));
        row("text as icon font", {"--icon-font", notAFont},
            QString("'%1' is not a font").arg(notAFont));
        row("four bytes as icon font", {"--icon-font", tooShort},
            QString("'%1' is not a font").arg(tooShort));
        row("cut off icon font", {"--icon-font", truncated},
            QString("'%1' is not a font").arg(truncated));
        row("screenshot in no directory", {"--screenshot", "/no/such/a.png"},
            "cannot write '/no/such/a.png'");
        row("screenshot on a directory", {"--screenshot", directory},
            QString("cannot write '%1'").arg(directory));
        row("screenshot without name", {"--screenshot", ""}, "cannot write ''");
        row("screenshots below a file", {"--screenshot-all", notAFont + "/a"},
            QString("cannot write into directory '%1/a'").arg(notAFont));
        row("screenshots on a file", {"--screenshot-all", notAFont},
            QString("cannot write into directory '%1'").arg(notAFont));
        row("screenshots nowhere", {"--screenshot-all", ""}, "cannot write into directory ''");
        row("anatomy nowhere", {"--anatomy", ""}, "cannot write into directory ''");
        row("anatomy and geometry", {"--anatomy", directory, "--geometry-of", "press-me"},
            "--anatomy and --geometry-of exclude each other");
        row("log in no directory", {"--log", "/no/such/a.log"}, "cannot write '/no/such/a.log'");
        row("log on a directory", {"--log", directory},
            QString("cannot write '%1'").arg(directory));
        row("two kinds of screenshot",
            {"--screenshot", path("a.png"), "--screenshot-all", directory},
            "--screenshot and --screenshot-all exclude each other");
    }

    void badArgumentsGiveOneLineAndCodeTwo() { isOneLineAndCodeTwo(m_broken); }

    void failuresAfterTheStartGiveOneLineAndCodeTwo_data()
    {
        const QString hollow = path("hollow.ttf");
        QVERIFY(fill(hollow, hollowFont()));
        QVERIFY(QDir(m_directory.path()).mkpath("taken/round-rect.png"));
        const QString taken = path("taken");

        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("what");
        QTest::newRow("font without glyphs")
            << QStringList{"--icon-font", hollow, "--screenshot", path("b.png")}
            << QString("cannot use '%1' as icon font").arg(hollow);
        QTest::newRow("full disk")
            << QStringList{"--screenshot", "/dev/full"} << "cannot write '/dev/full'";
        QTest::newRow("name taken by a directory")
            << QStringList{"--screenshot-all", taken}
            << QString("cannot write '%1/round-rect.png'").arg(taken);
        QTest::newRow("unknown control")
            << QStringList{"--geometry-of", "nobody"} << "no control 'nobody' on this page";
    }

    void failuresAfterTheStartGiveOneLineAndCodeTwo() { isOneLineAndCodeTwo(m_headless); }

    void optionsOfQtPass_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("platform") << QStringList{"-platform", "offscreen"};
        QTest::newRow("platform, two dashes") << QStringList{"--platform", "offscreen"};
        QTest::newRow("style") << QStringList{"-platform", "offscreen", "-style", "fusion"};
        QTest::newRow("geometry") << QStringList{"-platform", "offscreen", "-qwindowgeometry",
                                                 "300x200"};
        QTest::newRow("reverse") << QStringList{"-platform", "offscreen", "-reverse"};
        QTest::newRow("plugin path")
            << QStringList{"-platform", "offscreen", "-platformpluginpath", "/no/such/path"};
    }

    void optionsOfQtPass()
    {
        QFETCH(QStringList, arguments);
        const QString file = path("options.png");
        QFile::remove(file);
        const Gallery::Result result = Gallery::run(arguments + QStringList{"--screenshot", file},
                                                    m_broken);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(QImage(file).size(), QSize(800, 480));
    }

    void screenshotHasTheAskedSize_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        QTest::newRow("the default") << QString() << QSize(800, 480);
        QTest::newRow("wide") << "1024x600" << QSize(1024, 600);
        QTest::newRow("upright") << "480x800" << QSize(480, 800);
        QTest::newRow("small") << "640x480" << QSize(640, 480);
        QTest::newRow("square") << "480x480" << QSize(480, 480);
        QTest::newRow("smallest") << "100x100" << QSize(100, 100);
        QTest::newRow("as a banner") << "8192x100" << QSize(8192, 100);
        QTest::newRow("as a ribbon") << "100x8192" << QSize(100, 8192);
        QTest::newRow("large") << "1920x1080" << QSize(1920, 1080);
    }

    void screenshotHasTheAskedSize()
    {
        const auto text = fetch<QString>("text");
        const QStringList sized = text.isEmpty() ? QStringList() : QStringList{"--size", text};
        const QString directory = path("sized");
        const Gallery::Result result = Gallery::run(
            sized + QStringList{"--screenshot-all", directory}, m_headless);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);
        QStringList files;
        for (const QString &page : m_pageNames)
            files.append(directory + '/' + page + ".png");
        files.append(path("sized.png"));
        QCOMPARE(
            Gallery::run(sized + QStringList{"--screenshot", files.last()}, m_headless).exitCode,
            0);
        for (const QString &file : qAsConst(files)) {
            const QImage image(file, "PNG");
            QCOMPARE(image.size(), fetch<QSize>("size"));
            QVERIFY2(hasManyColours(image), qPrintable(file));
            QVERIFY(QFile::remove(file));
        }
    }

    void screenshotShowsTheAskedPage()
    {
        QCOMPARE(Gallery::run({"--screenshot-all", path("all")}, m_headless).exitCode, 0);
        for (const QString &page : m_pageNames) {
            if (screens.contains(page))
                continue;
            QCOMPARE(Gallery::run({"--page", page, "--screenshot", path("one.png")}, m_headless)
                         .exitCode,
                     0);
            QVERIFY2(QImage(path("one.png")) == QImage(path("all/" + page + ".png")),
                     qPrintable(page));
        }
    }

    void screenshotAllSavesEveryPage()
    {
        const QString directory = path("every");
        QVERIFY(QDir().mkpath(directory));
        const Gallery::Result result = Gallery::run(
            {"--screenshot-all", directory, "--size", "1024x600"}, m_headless);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);

        QStringList expected;
        for (const QString &page : m_pageNames)
            expected.append(page + ".png");
        expected.sort();
        QCOMPARE(QDir(directory).entryList(QDir::Files, QDir::Name), expected);
        QVector<QImage> images;
        for (const QString &name : qAsConst(expected)) {
            const QImage image(directory + '/' + name);
            QCOMPARE(image.size(), QSize(1024, 600));
            QVERIFY2(hasManyColours(image), qPrintable(name));
            QVERIFY2(!images.contains(image), qPrintable(name));
            images.append(image);
        }
    }

    void screenshotAllMakesTheDirectory()
    {
        QCOMPARE(Gallery::run({"--screenshot-all", path("new/below")}, m_headless).exitCode, 0);
        QCOMPARE(QDir(path("new/below")).entryList(QDir::Files).size(), m_pageNames.size());
    }

    void anatomySavesThePicturesOfTheGuide()
    {
        const Gallery::Result result = Gallery::run({"--anatomy", path("anatomy")}, m_headless);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);
        const QStringList files = QDir(path("anatomy")).entryList(QDir::Files);
        QVERIFY(files.contains("anatomy-push-button.png"));
        QVERIFY(files.contains("states-push-button.png"));
        for (const QString &file : files)
            QVERIFY2(hasManyColours(QImage(path("anatomy/" + file))), qPrintable(file));
    }

    void screenshotsAreReproducible()
    {
        QCOMPARE(Gallery::run({"--screenshot-all", path("first")}, m_headless).exitCode, 0);
        QCOMPARE(Gallery::run({"--screenshot-all", path("second")}, m_headless).exitCode, 0);
        for (const QString &page : m_pageNames) {
            if (screens.contains(page))
                continue;
            const QByteArray first = contentOf(path("first/" + page + ".png"));
            QVERIFY(!first.isEmpty());
            QVERIFY2(first == contentOf(path("second/" + page + ".png")), qPrintable(page));
        }
    }

    void missingDefaultFontIsOneWarning()
    {
        QProcessEnvironment environment = m_headless;
        environment.insert("XDG_DATA_DIRS", "/no/such/path");
        environment.insert("XDG_DATA_HOME", "/no/such/path");
        const Gallery::Result result = Gallery::run({"--screenshot-all", path("bare")},
                                                    environment);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(
            result.errorLines,
            QStringList{"kelgdi-gallery: warning: no icon font, install fonts-font-awesome or use "
                        "--icon-font"});
        QVERIFY(hasManyColours(QImage(path("bare/icon-font.png"))));
    }

    void otherIconFontIsUsed()
    {
        const QString original = QStandardPaths::locate(
            QStandardPaths::GenericDataLocation,
            "fonts-font-awesome/fonts/fontawesome-webfont.ttf");
        QVERIFY2(!original.isEmpty(), "fonts-font-awesome is not installed");
        const QString copy = path("icons.ttf");
        QVERIFY(QFile::copy(original, copy));
        QProcessEnvironment bare = m_headless;
        bare.insert("XDG_DATA_DIRS", "/no/such/path");
        const Gallery::Result result = Gallery::run(
            {"--icon-font", copy, "--screenshot", path("copy.png")}, bare);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(Gallery::run({"--screenshot", path("original.png")}, m_headless).exitCode, 0);
        QCOMPARE(QImage(path("copy.png")), QImage(path("original.png")));
    }

    void geometryOfFindsTheControl()
    {
        for (const char *size : {"800x480", "1024x600", "480x800", "480x272"}) {
            const Gallery::Result result = Gallery::run(
                {"--size", size, "--page", "push-button", "--geometry-of", "press-me"}, m_headless);
            QCOMPARE(result.errorLines, QStringList());
            QCOMPARE(result.exitCode, 0);
            const QRegularExpressionMatch match = QRegularExpression(
                                                      "\\A([0-9]+),([0-9]+) ([0-9]+)x([0-9]+)\n\\z")
                                                      .match(result.out);
            QVERIFY2(match.hasMatch(), qPrintable(result.out));
            const QRect rect(match.captured(1).toInt(), match.captured(2).toInt(),
                             match.captured(3).toInt(), match.captured(4).toInt());
            const QStringList sides = QString(size).split('x');
            QVERIFY(QRect(0, 0, sides.at(0).toInt(), sides.at(1).toInt()).contains(rect));
        }
    }

    void benchmarkMeasuresTheScreens()
    {
        const Gallery::Result result = Gallery::run({"--benchmark", "--csv", path("figures.csv")},
                                                    m_headless);
        QCOMPARE(result.errorLines, QStringList());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(QString::fromUtf8(contentOf(path("figures.csv"))), result.out);
        const QStringList lines = result.out.split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1 + screens.size());
        QCOMPARE(lines.first(),
                 "screen,size,frames,ms_per_frame,steps,paints,painted_px,"
                 "ms_per_step,memory_kb");
        for (int i = 0; i < screens.size(); ++i) {
            const QStringList fields = lines.at(i + 1).split(',');
            QCOMPARE(fields.size(), 9);
            QCOMPARE(fields.at(0), screens.at(i));
            QCOMPARE(fields.at(1), "800x480");
            for (int field : {2, 3, 4, 5, 6, 7, 8})
                QVERIFY2(fields.at(field).toDouble() > 0, qPrintable(lines.at(i + 1)));
        }
    }

    void screenshotLeavesTheLogEmpty()
    {
        const Gallery::Result result = Gallery::run(
            {"--log", path("empty.log"), "--screenshot", path("logged.png")}, m_headless);
        QCOMPARE(result.exitCode, 0);
        QVERIFY(QFile::exists(path("empty.log")));
        QCOMPARE(contentOf(path("empty.log")), QByteArray());
        QCOMPARE(Gallery::run({"--log", "-", "--screenshot", path("logged.png")}, m_headless).out,
                 QString());
    }

private:
    static void isOneLineAndCodeTwo(const QProcessEnvironment &environment)
    {
        const auto what = fetch<QString>("what");
        const Gallery::Result result = Gallery::run(fetch<QStringList>("arguments"), environment);
        QCOMPARE(result.errorLines, QStringList{"kelgdi-gallery: " + what});
        QCOMPARE(result.exitCode, 2);
        QCOMPARE(result.out, QString());
    }
    QString path(const QString &name) const { return m_directory.filePath(name); }

    // They show the time.
    const QStringList screens{u"thermostat"_s, u"charger"_s, u"system"_s};
    QStringList m_pageNames; // all

    QTemporaryDir m_directory;
    QProcessEnvironment m_headless; // no platform is named
    QProcessEnvironment m_broken; // a platform is named that does not exist
};

KEL_TEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
