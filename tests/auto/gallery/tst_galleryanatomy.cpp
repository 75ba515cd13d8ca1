// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "anatomy.h"
#include "keltest.h"
#include "rows.h"

#include <KELIconFont>
#include <QtCore/QDir>
#include <QtCore/QSet>

// The pictures of the styling guide: what they say is so, they can be read, and those of the guide
// are as they are drawn.
class tst_GalleryAnatomy : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!Anatomy::fontPath().isEmpty(), "needs fonts-dejavu-core");
        startRecording();
        KELIconFont::installFont(Anatomy::fontPath());
        takeDebugLines();
        stopRecording();
    }

    void fieldPaintsWhatItsLinePointsAt_data() { addFields(); }

    void fieldPaintsWhatItsLinePointsAt()
    {
        const Anatomy::Sheet &sheet = Anatomy::anatomySheets()[fetch<size_t>("sheet")];
        const std::vector<Anatomy::Specimen> specimens = sheet.make();
        const Anatomy::Specimen &specimen = specimens[fetch<size_t>("specimen")];
        const Anatomy::CallOut &callOut = specimen.callOuts[fetch<size_t>("callOut")];
        const QImage before = Anatomy::drawSpecimen(specimen, Anatomy::enlargement);
        callOut.fields[fetch<size_t>("field")].change();
        const QImage after = Anatomy::drawSpecimen(specimen, Anatomy::enlargement);

        const QRect dot = dotAt(callOut.point);
        QVERIFY(before.rect().contains(dot));
        QVERIFY(before.copy(dot) != after.copy(dot));
    }

    void aSpecimenIsDrawnAlikeTwice_data() { addSheets(); }

    // Otherwise any field would seem to paint something.
    void aSpecimenIsDrawnAlikeTwice()
    {
        const Anatomy::Sheet &sheet = Anatomy::anatomySheets()[fetch<size_t>("sheet")];
        for (const Anatomy::Specimen &specimen : sheet.make())
            QCOMPARE(Anatomy::drawSpecimen(specimen, 2), Anatomy::drawSpecimen(specimen, 2));
    }

    void aFieldStandsOncePerPoint_data() { addSheets(); }

    void aFieldStandsOncePerPoint()
    {
        const Anatomy::Sheet &sheet = Anatomy::anatomySheets()[fetch<size_t>("sheet")];
        for (const Anatomy::Specimen &specimen : sheet.make()) {
            for (const Anatomy::CallOut &callOut : specimen.callOuts) {
                QSet<QString> names;
                for (const Anatomy::Field &field : callOut.fields)
                    names.insert(field.name);
                QCOMPARE(names.size(), int(callOut.fields.size()));
            }
        }
    }

    void linesAndNamesDoNotMeet_data() { addSheets(); }

    void linesAndNamesDoNotMeet()
    {
        const std::vector<Anatomy::Specimen> specimens
            = Anatomy::anatomySheets()[fetch<size_t>("sheet")].make();
        for (const Anatomy::Placed &placed : Anatomy::place(specimens)) {
            const std::vector<Anatomy::Label> &labels = placed.labels;
            for (size_t i = 0; i < labels.size(); ++i) {
                QVERIFY(!labels[i].rect.intersects(placed.panel));
                for (size_t k = i + 1; k < labels.size(); ++k) {
                    QVERIFY2(!labels[i].rect.intersects(labels[k].rect), nameOf(labels[k]));
                    QVERIFY2(!meet(labels[i].line, labels[k].line), nameOf(labels[k]));
                }
            }
        }
    }

    void namesAreNotCut_data() { addSheets(); }

    void namesAreNotCut()
    {
        const std::vector<Anatomy::Specimen> specimens
            = Anatomy::anatomySheets()[fetch<size_t>("sheet")].make();
        for (const Anatomy::Placed &placed : Anatomy::place(specimens)) {
            for (const Anatomy::Label &label : placed.labels) {
                for (const Anatomy::Field &field : label.callOut->fields)
                    QVERIFY2(Anatomy::nameWidth(field.name) <= label.rect.width(), nameOf(label));
            }
        }
    }

    void statesDiffer_data()
    {
        QTest::addColumn<int>("sheet");
        for (size_t i = 0; i < Anatomy::stateSheets().size(); ++i)
            QTest::newRow(Anatomy::stateSheets()[i].name) << int(i);
    }

    void statesDiffer()
    {
        const std::vector<Anatomy::Specimen> states = Anatomy::stateSheets()[fetch<size_t>("sheet")]
                                                          .make();
        for (size_t i = 0; i < states.size(); ++i) {
            for (size_t k = i + 1; k < states.size(); ++k) {
                if (isWithoutLook(states[k].title))
                    continue;
                QVERIFY2(Anatomy::drawSpecimen(states[i], 1) != Anatomy::drawSpecimen(states[k], 1),
                         qPrintable(states[i].title + u" / "_s + states[k].title));
            }
        }
    }

    void pictureOfTheGuideIsAsDrawn_data()
    {
        QTest::addColumn<QString>("file");
        const QStringList names = Anatomy::fileNames();
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    void pictureOfTheGuideIsAsDrawn()
    {
        const auto file = fetch<QString>("file");
        const QDir folder(qEnvironmentVariable("KEL_DOC_IMAGES"));
        if (qEnvironmentVariableIsEmpty("KEL_DOC_IMAGES") || !folder.exists())
            QSKIP("the sources are not here");
        const QImage kept(folder.filePath(file));
        const QImage drawn = Anatomy::draw(file);
        QVERIFY2(drawn.size() == kept.size() && worstDifference(drawn, kept) <= roundingLevels,
                 "update it: kelgdi-gallery --anatomy docs/images");
    }

    void noPictureOfTheGuideIsLeftOver()
    {
        const QDir folder(qEnvironmentVariable("KEL_DOC_IMAGES"));
        if (qEnvironmentVariableIsEmpty("KEL_DOC_IMAGES") || !folder.exists())
            QSKIP("the sources are not here");
        QStringList expected = Anatomy::fileNames();
        expected.sort();
        QCOMPARE(folder.entryList({u"anatomy-*.png"_s, u"states-*.png"_s}, QDir::Files, QDir::Name),
                 expected);
    }

private:
    // Of 255: processors may round a blend of two colours differently.
    static constexpr int roundingLevels = 8;

    static void addSheets()
    {
        QTest::addColumn<int>("sheet");
        for (size_t i = 0; i < Anatomy::anatomySheets().size(); ++i)
            QTest::newRow(Anatomy::anatomySheets()[i].name) << int(i);
    }

    static void addFields()
    {
        for (const char *column : {"sheet", "specimen", "callOut", "field"})
            QTest::addColumn<int>(column);
        const std::vector<Anatomy::Sheet> &sheets = Anatomy::anatomySheets();
        for (size_t sheet = 0; sheet < sheets.size(); ++sheet) {
            const std::vector<Anatomy::Specimen> specimens = sheets[sheet].make();
            for (size_t specimen = 0; specimen < specimens.size(); ++specimen)
                addFieldsOf(specimens[specimen], sheets[sheet].name, int(sheet), int(specimen));
        }
    }

    static void addFieldsOf(const Anatomy::Specimen &specimen, const char *sheetName, int sheet,
                            int index)
    {
        for (size_t callOut = 0; callOut < specimen.callOuts.size(); ++callOut) {
            const auto &fields = specimen.callOuts[callOut].fields;
            for (size_t field = 0; field < fields.size(); ++field) {
                const QString name = u"%1 %2, line %3: %4"_s.arg(QLatin1String(sheetName))
                                         .arg(index + 1)
                                         .arg(callOut + 1)
                                         .arg(fields[field].name);
                QTest::newRow(qPrintable(name)) << sheet << index << int(callOut) << int(field);
            }
        }
    }

    // What the dot at the end of a line covers.
    static QRect dotAt(const QPointF &point)
    {
        const QPoint middle = (point * Anatomy::enlargement).toPoint();
        return QRect(middle - QPoint(3, 3), QSize(7, 7));
    }

    static const char *nameOf(const Anatomy::Label &label)
    {
        static QByteArray name;
        name = label.callOut->fields.front().name.toUtf8();
        return name.constData();
    }

    static bool meet(const QLineF &one, const QLineF &other)
    {
        return one.intersects(other, nullptr) == QLineF::BoundedIntersection;
    }

    // A push button has no checked look of its own, and only its own looks are shown to differ.
    static bool isWithoutLook(const QString &state)
    {
        return state == u"checked"_s || state == u"released, own looks"_s;
    }

    static int worstDifference(const QImage &one, const QImage &other)
    {
        int worst = 0;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                const QRgb a = one.pixel(x, y);
                const QRgb b = other.pixel(x, y);
                worst = std::max({worst, qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)),
                                  qAbs(qBlue(a) - qBlue(b))});
            }
        }
        return worst;
    }
};

KEL_TEST_MAIN(tst_GalleryAnatomy)
#include "tst_galleryanatomy.moc"
