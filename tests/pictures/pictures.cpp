// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sheets.h"

#include <keliconfont.h>
#include <kelmotion.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

#include <cstdio>

namespace {

std::vector<Variant> variants(bool isQuick)
{
    std::vector<Variant> all;
    for (const KELTheme::Scheme scheme :
         {KELTheme::Light, KELTheme::Dark, KELTheme::HighContrast}) {
        for (const QSize &size :
             {QSize(480, 272), QSize(800, 480), QSize(480, 800), QSize(1280, 800)}) {
            for (const bool isMirrored : {false, true}) {
                if (!isQuick || (size.width() == 800 && isMirrored == (scheme == KELTheme::Dark)))
                    all.push_back({scheme, size, isMirrored});
            }
        }
    }
    return all;
}

void installIcons()
{
    const QString path = QStandardPaths::locate(
        QStandardPaths::GenericDataLocation,
        QStringLiteral("fonts-font-awesome/fonts/fontawesome-webfont.ttf"));
    KELIconFont::installFont(path.isEmpty() ? KelTest::besideProgram(u"../icons.ttf"_s) : path);
}

void say(FILE *file, const QString &text)
{
    std::fprintf(file, "%s\n", qPrintable(text));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Draws all parts in all states and fails if nothing is to be seen of one."_s);
    parser.addHelpOption();
    parser.addOption({u"quick"_s, u"Only 800 x 480, each scheme once."_s});
    parser.addOption({u"sheet"_s, u"Only the sheets whose names begin with <name>."_s, u"name"_s});
    parser.addPositionalArgument(u"folder"_s, u"Where the pictures are saved, if anywhere."_s);
    parser.process(app);
    const QString folder = parser.positionalArguments().value(0);
    if (!folder.isEmpty() && !QDir().mkpath(folder)) {
        say(stderr, u"cannot create "_s + folder);
        return 2;
    }

    installIcons();
    KELMotion::setEnabled(false);
    int pictureCount = 0;
    QStringList faults;
    for (const Variant &variant : variants(parser.isSet(u"quick"_s))) {
        PictureBook book(variant, folder);
        for (const Sheet &sheet : sheets()) {
            const QString name = QString::fromLatin1(sheet.name);
            if (!name.startsWith(parser.value(u"sheet"_s)))
                continue;
            book.begin(name);
            sheet.fill(&book);
            book.end();
        }
        pictureCount += book.pictureCount();
        faults += book.faults();
    }
    for (const QString &fault : qAsConst(faults))
        say(stderr, fault);
    say(stdout, u"%1 pictures, %2 faults"_s.arg(pictureCount).arg(faults.size()));
    return pictureCount > 0 && faults.isEmpty() ? 0 : 1;
}
