// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzztargets.h"
#include "keltest.h"

#include <keliconfont.h>
#include <kelpushbutton.h>

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>

namespace {

constexpr ushort codes[] = {0xE000, 0xE001, 'A', 0xE0FF};

// Qt caches fonts by the name of their file: each file has its own.
QString nextPath()
{
    static const QTemporaryDir folder;
    static int number = 0;
    return folder.filePath(QStringLiteral("%1.ttf").arg(++number));
}

QImage picture(const KELPushButton &button)
{
    return KelImage::draw(QSize(70, 60), 1, [&button](QPainter *painter) {
        int x = 0;
        for (const ushort code : codes) {
            KELIconFont glyph(code);
            glyph.setPixelSize(14);
            glyph.drawIcon(painter, QRectF(x, 0, 16, 16), Qt::AlignCenter);
            x += 16;
        }
        painter->translate(0, 20);
        const_cast<KELPushButton &>(button).paint(painter, nullptr, nullptr);
    });
}

QString wrongWithFile(const QString &path)
{
    const QString before = QStringLiteral("Before");
    KELIconFont::g_fontFamily = before;
    KELIconFont::installFont(path);
    const QStringList lines = KelTest::takeDebugLines();
    const QString family = KELIconFont::fontFamily();

    const int id = QFontDatabase::addApplicationFont(path);
    const QStringList families = id < 0 ? QStringList()
                                        : QFontDatabase::applicationFontFamilies(id);
    if (family != families.value(0, before))
        return QStringLiteral("the family is %1, and the file has: %2")
            .arg(family, families.join(QLatin1Char('|')));
    QString expected;
    if (families.isEmpty())
        QDebug(&expected).nospace() << "could not intstall " << path;
    else
        QDebug(&expected).nospace()
            << "install from " << path << " , font " << family << " succeeful";
    if (lines != QStringList(expected))
        return QStringLiteral("printed: %1, expected: %2")
            .arg(lines.join(QLatin1Char('|')), expected);
    if (KELIconFont::iconFont().family() != family)
        return QStringLiteral("the icon font is of another family");
    if (families.isEmpty())
        return QString();

    KELPushButton button;
    button.setboundRect(0, 0, 60, 40);
    button.style()->icon = KELIconFont(codes[0]);
    button.style()->text = QString(KELIconFont(codes[1]));
    button.style()->font = KELIconFont::iconFont();
    const QImage first = picture(button);
    return picture(button) == first ? QString() : QStringLiteral("painted in two ways");
}

} // namespace

QString KelFuzz::fonts(const QByteArray &bytes)
{
    const QString path = nextPath();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QStringLiteral("cannot write ") + path;
    file.close();

    const QString wrong = wrongWithFile(path);
    QFontDatabase::removeAllApplicationFonts();
    KELIconFont::g_fontFamily.clear();
    file.remove();
    return wrong;
}
