// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"

#include <keliconfont.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>

#include <type_traits>

namespace {

constexpr ushort fullGlyph = 0xE000; // the whole em square
constexpr ushort leftGlyph = 0xE001; // its left half

const QString testFamily = u"KEL Test Icons"_s;

QString dataFile(const QString &name)
{
    return KelTest::besideProgram(name);
}

QStringList successLine(const QString &path, const QString &family)
{
    return {u"install from \"%1\" , font \"%2\" succeeful"_s.arg(path, family)};
}

QStringList failureLine(const QString &path)
{
    return {u"could not intstall \"%1\""_s.arg(path)};
}

void installTestFont()
{
    KELIconFont::installFont(dataFile(u"icons.ttf"_s));
    QCOMPARE(KelTest::takeDebugLines(), successLine(dataFile(u"icons.ttf"_s), testFamily));
}

// A glyph shows its font only to the painter that draws it.
QFont fontOf(const KELIconFont &icon)
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    icon.drawIcon(&painter, image.rect(), Qt::AlignCenter);
    return painter.font();
}

// The glyph in the middle of a picture.
QImage picture(const KELIconFont &icon)
{
    return KelImage::draw(QSize(40, 40), 1, [&](QPainter *painter) {
        icon.drawIcon(painter, QRectF(0, 0, 40, 40), Qt::AlignCenter);
    });
}

QImage pictureByHand(const QFont &font, QChar glyph)
{
    return KelImage::draw(QSize(40, 40), 1, [&](QPainter *painter) {
        painter->setFont(font);
        painter->drawText(QRectF(0, 0, 40, 40), Qt::AlignCenter, QString(glyph));
    });
}

// The families Qt finds in a file, as the installation sees them.
QStringList familiesOf(const QString &path)
{
    const int id = QFontDatabase::addApplicationFont(path);
    return id < 0 ? QStringList() : QFontDatabase::applicationFontFamilies(id);
}

bool write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_KELIconFont : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    // First: needs a process in which nothing was installed.

    void familyIsEmptyBeforeTheFirstInstallation()
    {
        QCOMPARE(KELIconFont::g_fontFamily, QString());
        QCOMPARE(KELIconFont::fontFamily(), QString());
        QCOMPARE(KELIconFont::iconFont(), QFont(QString(), -1, -1, false));
        KELIconFont::installFont(dataFile(u"missing.ttf"_s));
        QCOMPARE(KELIconFont::fontFamily(), QString());
        QCOMPARE(takeDebugLines(), failureLine(dataFile(u"missing.ttf"_s)));
    }

    void glyphHoldsItsCode_data()
    {
        addRows({{"code",
                  {{"zero", 0},
                   {"one", 1},
                   {"letter", 'A'},
                   {"high byte alone", 0x0100},
                   {"private use", fullGlyph},
                   {"high surrogate", 0xD800},
                   {"largest", 0xFFFF}}}});
    }

    void glyphHoldsItsCode()
    {
        const auto code = ushort(fetch<int>("code"));
        KELIconFont converted;
        converted = code;
        for (const KELIconFont &icon : {KELIconFont(code), converted}) {
            QCOMPARE(icon.isNull(), code == 0);
            QCOMPARE(icon.getIcon().unicode(), code);
            QCOMPARE(static_cast<QChar>(icon).unicode(), code);
            const QString text = icon;
            QCOMPARE(text, QString(1, QChar(code)));
        }
    }

    void defaultGlyphIsNull()
    {
        const KELIconFont icon;
        QVERIFY(icon.isNull());
        QCOMPARE(icon.getIcon(), QChar());
        const QString text = icon;
        QCOMPARE(text, QString(1, QChar()));
    }

    void setIconReplacesTheGlyphOnly()
    {
        KELIconFont::g_fontFamily = testFamily;
        KELIconFont icon(leftGlyph);
        icon.setPixelSize(17);
        KELIconFont::g_fontFamily = u"Other"_s;
        icon.setIcon(QChar(fullGlyph));
        QCOMPARE(icon.getIcon().unicode(), fullGlyph);

        QCOMPARE(fontOf(icon).family(), testFamily);
        QCOMPARE(fontOf(icon).pixelSize(), 17);

        icon.setIcon(QChar());
        QVERIFY(icon.isNull());
    }

    void copyIsAValueOfItsOwn()
    {
        const KELIconFont first(leftGlyph);
        KELIconFont second(first);
        second.setIcon(QChar(fullGlyph));
        QCOMPARE(first.getIcon().unicode(), leftGlyph);
        KELIconFont third;
        third = first;
        QCOMPARE(third.getIcon().unicode(), leftGlyph);
    }

    void isAPlainValueClass()
    {
        QVERIFY(!std::is_polymorphic_v<KELIconFont>);
        QVERIFY(std::is_copy_constructible_v<KELIconFont>);
        QVERIFY(std::is_copy_assignable_v<KELIconFont>);
        QVERIFY(std::is_default_constructible_v<KELIconFont>);
    }

    void iconFontHasNeitherSizeNorWeightOfItsOwn()
    {
        KELIconFont::g_fontFamily = testFamily;
        const QFont font = KELIconFont::iconFont();
        QCOMPARE(font, QFont(testFamily));
        QCOMPARE(font.weight(), int(QFont::Normal));
        QVERIFY(!font.italic());
        QCOMPARE(font.pointSizeF(), QFont().pointSizeF());
        QCOMPARE(font.resolve(QFont(u"Of a device"_s, 33)).pointSize(), 33);
    }

    void iconFontUsesTheFamily()
    {
        KELIconFont::g_fontFamily = u"Some family"_s;
        QCOMPARE(KELIconFont::fontFamily(), u"Some family"_s);
        QCOMPARE(KELIconFont::iconFont().family(), u"Some family"_s);
        KELIconFont::g_fontFamily.clear();
        QCOMPARE(KELIconFont::fontFamily(), QString());
        QCOMPARE(KELIconFont::iconFont(), QFont(QString()));
    }

    void installsAFont()
    {
        KELIconFont::g_fontFamily = u"Before"_s;
        const QString path = dataFile(u"icons.ttf"_s);
        for (int i = 0; i < 2; ++i) {
            KELIconFont::installFont(path);
            QCOMPARE(takeDebugLines(), successLine(path, testFamily));
            QCOMPARE(KELIconFont::fontFamily(), testFamily);
            QCOMPARE(KELIconFont::g_fontFamily, testFamily);
            QCOMPARE(KELIconFont::iconFont().family(), familiesOf(path).value(0));
        }
    }

    void refusesAFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");

        QTest::newRow("missing") << u"missing.ttf"_s << QByteArray();
        QTest::newRow("in a missing folder") << u"missing/icons.ttf"_s << QByteArray();
        QTest::newRow("empty") << u"empty.ttf"_s << QByteArray("");
        QTest::newRow("garbage") << u"garbage.ttf"_s << QByteArray(3000, '\xA5');
        QTest::newRow("text") << u"text.ttf"_s << QByteArray("This is no font.\n");
        QTest::newRow("magic number alone") << u"magic.ttf"_s << QByteArray("\0\1\0\0", 4);
        QTest::newRow("truncated") << u"cut.ttf"_s << contentOf(dataFile(u"truncated.ttf"_s));
        QTest::newRow("folder") << QString() << QByteArray();
    }

    void refusesAFile()
    {
        const auto name = fetch<QString>("name");
        const auto content = fetch<QByteArray>("content");
        QTemporaryDir folder;
        const QString path = name.isEmpty() ? folder.path() : folder.filePath(name);
        if (!content.isNull())
            QVERIFY(write(path, content));

        KELIconFont::g_fontFamily.clear();
        KELIconFont::installFont(path);
        QCOMPARE(takeDebugLines(), failureLine(path));
        QCOMPARE(KELIconFont::fontFamily(), QString());
    }

    void keepsTheFamilyWhenAFileIsRefused()
    {
        installTestFont();
        for (const QString &name : {u"missing.ttf"_s, u"truncated.ttf"_s}) {
            KELIconFont::installFont(dataFile(name));
            QCOMPARE(takeDebugLines(), failureLine(dataFile(name)));
            QCOMPARE(KELIconFont::fontFamily(), testFamily);
            QCOMPARE(KELIconFont::iconFont().family(), testFamily);
        }
    }

    void fontWithoutFamilyName()
    {
        // fontconfig names such a font after its file; without fontconfig Qt may find no family at
        // all.
        const QString path = dataFile(u"nofamily.ttf"_s);
        const QStringList families = familiesOf(path);
        KELIconFont::g_fontFamily = u"Before"_s;
        KELIconFont::installFont(path);
        const QString family = families.isEmpty() ? u"Before"_s : families.first();
        QCOMPARE(takeDebugLines(),
                 families.isEmpty() ? failureLine(path) : successLine(path, family));
        QCOMPARE(KELIconFont::fontFamily(), family);
    }

    void pathIsPrintedQuoted_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("printed");

        QTest::newRow("spaces") << u"no such font"_s << u"\"no such font\""_s;
        QTest::newRow("quote") << u"a\"b"_s << u"\"a\\\"b\""_s;
        QTest::newRow("percent sign") << u"%1%2"_s << u"\"%1%2\""_s;
        QTest::newRow("letters beyond ASCII")
            << u"/\u00E9\u4E2D.ttf"_s << u"\"/\u00E9\u4E2D.ttf\""_s;
        QTest::newRow("resource") << u":/no/icons.ttf"_s << u"\":/no/icons.ttf\""_s;
    }

    void pathIsPrintedQuoted()
    {
        KELIconFont::installFont(fetch<QString>("path"));
        QCOMPARE(takeDebugLines(),
                 QStringList(u"could not intstall "_s + fetch<QString>("printed")));
    }

    void refusesAnEmptyPath()
    {
        KELIconFont::g_fontFamily.clear();
        KELIconFont::installFont(QString());
        QCOMPARE(takeDebugLines(), failureLine(QString()));
        QCOMPARE(KELIconFont::fontFamily(), QString());
        // Qt's own complaint about an empty file name.
        QCOMPARE(takeWarnings(), QStringList(u"QFSFileEngine::open: No file name specified"_s));
    }

    void fontCutAnywhere()
    {
        const QByteArray whole = contentOf(dataFile(u"icons.ttf"_s));
        QVERIFY(!whole.isEmpty());
        QTemporaryDir folder;
        for (int size = 0; size < whole.size(); size += 25) {
            const QString path = folder.filePath(u"cut%1.ttf"_s.arg(size));
            QVERIFY(write(path, whole.left(size)));
            KELIconFont::g_fontFamily = u"Before"_s;
            KELIconFont::installFont(path);
            const QString family = KELIconFont::fontFamily();
            const bool refused = family == QLatin1String("Before");
            QCOMPARE(takeDebugLines(), refused ? failureLine(path) : successLine(path, family));
            QCOMPARE(familiesOf(path).value(0, u"Before"_s), family);
        }
    }

    void glyphKeepsTheFamilyItWasBuiltWith()
    {
        KELIconFont::g_fontFamily.clear();
        const KELIconFont before(leftGlyph);
        installTestFont();
        const KELIconFont after(leftGlyph);
        const KELIconFont copyOfBefore(before);

        QCOMPARE(fontOf(before).family(), QString());
        QCOMPARE(fontOf(after).family(), testFamily);
        QCOMPARE(fontOf(copyOfBefore).family(), QString());
    }

    void drawsTheGlyphIntoTheRectangle_data()
    {
        QTest::addColumn<ushort>("code");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QRect>("ink");

        // A glyph of 20 px: its em square is the line.
        QTest::newRow("whole, centred")
            << fullGlyph << int(Qt::AlignCenter) << QRect(15, 20, 20, 20);
        QTest::newRow("half, centred")
            << leftGlyph << int(Qt::AlignCenter) << QRect(15, 20, 10, 20);
        QTest::newRow("half, left and top")
            << leftGlyph << int(Qt::AlignLeft | Qt::AlignTop) << QRect(5, 10, 10, 20);
        QTest::newRow("half, right and bottom")
            << leftGlyph << int(Qt::AlignRight | Qt::AlignBottom) << QRect(25, 30, 10, 20);
        QTest::newRow("whole, no flags") << fullGlyph << 0 << QRect(5, 10, 20, 20);
    }

    void drawsTheGlyphIntoTheRectangle()
    {
        const auto ink = fetch<QRect>("ink");
        installTestFont();
        KELIconFont icon(fetch<ushort>("code"));
        icon.setPixelSize(20);

        const QSize size(60, 60);
        const QImage actual = KelImage::draw(size, 1, [&icon](QPainter *painter) {
            painter->setPen(Qt::darkRed);
            icon.drawIcon(painter, QRectF(5, 10, 40, 40), fetch<int>("flags"));
        });
        // The font engine may smooth the edges; one pixel around them is left out of the
        // comparison.
        const QRect edges = ink.adjusted(-1, -1, 1, 1);
        const QRect inside = ink.adjusted(1, 1, -1, -1);
        const auto withoutEdges = [&](QImage image) {
            QPainter painter(&image);
            painter.setClipRegion(QRegion(edges) - inside);
            painter.fillRect(image.rect(), Qt::white);
            painter.end();
            return image;
        };
        const QImage expected = KelImage::draw(
            size, 1, [&ink](QPainter *painter) { painter->fillRect(ink, Qt::darkRed); });
        QCOMPARE(KelImage::difference(withoutEdges(actual), withoutEdges(expected)), QString());
    }

    void drawingSetsTheFontAndKeepsThePen()
    {
        KELIconFont::g_fontFamily = testFamily;
        KELIconFont icon(fullGlyph);
        icon.setPixelSize(12);
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const QPen pen(Qt::green, 3, Qt::DotLine);
        const QBrush brush(Qt::yellow, Qt::Dense3Pattern);
        painter.setPen(pen);
        painter.setBrush(brush);
        icon.drawIcon(&painter, image.rect(), Qt::AlignCenter);
        QCOMPARE(painter.font().family(), testFamily);
        QCOMPARE(painter.font().pixelSize(), 12);
        QCOMPARE(painter.pen(), pen);
        QCOMPARE(painter.brush(), brush);
        QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
    }

    void drawingDoesNotChangeTheGlyph()
    {
        KELIconFont::g_fontFamily = testFamily;
        const KELIconFont icon(fullGlyph);
        const QImage first = picture(icon);
        QCOMPARE(KelImage::difference(picture(icon), first), QString());
        QCOMPARE(icon.getIcon().unicode(), fullGlyph);
    }

    void drawsANullGlyph()
    {
        KELIconFont::g_fontFamily.clear();
        QCOMPARE(
            KelImage::difference(picture(KELIconFont()), pictureByHand(QFont(QString()), QChar())),
            QString());
    }

    void drawsAGlyphThatTheFontLacks()
    {
        installTestFont();
        KELIconFont icon(0xE0FF);
        icon.setPixelSize(20);
        QFont font(testFamily);
        font.setPixelSize(20);
        QCOMPARE(KelImage::difference(picture(icon), pictureByHand(font, QChar(0xE0FF))),
                 QString());
    }

    void pixelSizeIsThatOfTheGlyphAlone()
    {
        KELIconFont::g_fontFamily = testFamily;
        KELIconFont icon(fullGlyph);
        const KELIconFont other(icon);
        icon.setPixelSize(48);
        QCOMPARE(fontOf(other).pointSizeF(), QFont().pointSizeF());
        QCOMPARE(fontOf(icon).pixelSize(), 48);
        QCOMPARE(KELIconFont::iconFont(), QFont(testFamily));
    }

    void pixelSizeMustBePositive_data() { addRows({{"size", {{"zero", 0}, {"negative", -3}}}}); }

    void pixelSizeMustBePositive()
    {
        KELIconFont icon(fullGlyph);
        icon.setPixelSize(25);
        icon.setPixelSize(fetch<int>("size"));
        QCOMPARE(
            takeWarnings(),
            QStringList(u"QFont::setPixelSize: Pixel size <= 0 (%1)"_s.arg(fetch<int>("size"))));
        QCOMPARE(fontOf(icon).pixelSize(), 25);
    }
};

KEL_TEST_MAIN(tst_KELIconFont)
#include "tst_keliconfont.moc"
