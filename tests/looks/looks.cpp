// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "hand.h"
#include "handdrawing.h"
#include "paintcount.h"
#include "stage.h"

#include <QtCore/QBuffer>
#include <QtCore/QCommandLineParser>
#include <QtCore/QRegularExpression>
#include <QtGui/QPdfWriter>
#include <QtGui/QPicture>

#include <cstdio>
#include <memory>
#include <random>

// Paints at random, and prints a line for each case: what a control is, and a hash of all that came
// out. Nothing here depends on whether looks are kept, so the lines with and without must be equal.
// The last line says how many shapes were drawn: with kept looks it must be fewer.

namespace {

class Dice
{
public:
    explicit Dice(uint seed) : m_engine(seed) { }

    int below(int end) { return int(m_engine() % uint(end)); }
    bool oneIn(int chances) { return below(chances) == 0; }
    template <typename Value, size_t Size>
    const Value &pick(const Value (&values)[Size])
    {
        return values[size_t(below(int(Size)))];
    }

private:
    std::mt19937 m_engine;
};

class Hash
{
public:
    void add(const void *bytes, size_t size) { m_hash = qHashBits(bytes, size, m_hash); }
    void add(const QByteArray &bytes) { add(bytes.constData(), size_t(bytes.size())); }
    void add(const QImage &image)
    {
        const int rowBytes = (image.width() * image.depth() + 7) / 8;
        for (int y = 0; y < image.height(); ++y)
            add(image.constScanLine(y), size_t(rowBytes));
    }
    uint result() const { return m_hash; }

private:
    uint m_hash = 1;
};

// Few values each, so that they come again.
const qreal radii[] = {0, 0, 1, 2, 2.5, 4, 9, 9.25, 40};
const float outlines[] = {0, 0.5F, 1, 1, 2, 3, 3.25F};
const int flagSets[] = {Qt::AlignCenter, Qt::AlignCenter | Qt::TextWordWrap,
                        Qt::AlignLeft | Qt::AlignTop, Qt::AlignRight | Qt::AlignBottom};
const QString captions[] = {
    QString(),         u"OK"_s,         u"OK"_s,           u"Start the third pump"_s,
    u"17.5 \u00b0C"_s, u"Two\nlines"_s, u"Stop the pump"_s};

QBrush randomBrush(Dice *dice)
{
    switch (dice->below(24)) {
    case 0:
        return Qt::NoBrush;
    case 1:
        return HandDrawing::gradient();
    case 2:
        return HandDrawing::picture();
    case 3:
        return {Qt::darkGreen, Qt::BDiagPattern};
    case 4:
        return QColor::fromRgba64(ushort(80 * 257 + dice->below(3)), 9000, 40000);
    case 5:
        return QColor::fromHsv(200, 100 + dice->below(3), 80);
    default:
        return QColor(40 * dice->below(3), 90, 120, dice->oneIn(2) ? 255 : 100);
    }
}

QFont randomFont(Dice *dice)
{
    const QString families[] = {QString(), u"DejaVu Sans"_s, u"DejaVu Serif"_s};
    QFont font;
    if (!dice->oneIn(3))
        font.setFamily(dice->pick(families));
    font.setPixelSize(9 + dice->below(5));
    font.setBold(dice->oneIn(3));
    font.setUnderline(dice->oneIn(5));
    return font;
}

QMarginsF randomMargins(Dice *dice)
{
    const qreal left = dice->below(4);
    const qreal top = dice->below(3);
    const qreal right = dice->below(4) / 2.0;
    return {left, top, right, qreal(dice->below(3))};
}

QRectF randomRect(Dice *dice, const QRectF &before)
{
    const QSizeF sizes[] = {{100, 30}, {100, 30}, {60, 40}, {60.5, 40}, {60, 40.25}};
    QPointF place = before.topLeft();
    if (dice->oneIn(2)) {
        place.setX(dice->below(5000));
        place.setY(dice->below(3000) + (dice->oneIn(6) ? 0.25 : 0));
    }
    return {place, dice->oneIn(2) ? before.size() : dice->pick(sizes)};
}

using Control = KELRoundRectControl;
using Change = void (*)(Control *, Dice *);

void changeOwnPart(Control *control, Dice *dice)
{
    if (auto *button = qobject_cast<KELPushButton *>(control))
        static_cast<KELPushButtonStyle *>(button->style())->iconMargins = randomMargins(dice);
    if (auto *box = qobject_cast<KELCheckBox *>(control))
        static_cast<KELCheckBoxStyle *>(box->style())->indicatorBrush = randomBrush(dice);
    if (auto *bar = qobject_cast<KELProcessBar *>(control))
        bar->setValue(10 * dice->below(11));
    if (auto *slide = qobject_cast<KELSlideControl *>(control)) {
        slide->setMaximun(dice->oneIn(6) ? 10 : 100);
        slide->setValue(float(5 * dice->below(21)));
        slide->setMaximun(dice->oneIn(6) ? 10 : 100); // the value may now lie beyond it
    }
    if (auto *item = qobject_cast<KELComboBoxItem *>(control))
        item->setDisplay(dice->pick(captions));
    if (auto *combo = qobject_cast<KELComboBox *>(control)) {
        combo->addItem(1, dice->pick(captions));
        combo->setSelectIndex(0);
    }
    if (auto *line = qobject_cast<KELLineItem *>(control))
        line->setLine(control->rect().topLeft(), control->rect().bottomRight());
}

const Change changes[] = {
    [](Control *c, Dice *d) { c->setboundRect(randomRect(d, c->rect())); },
    [](Control *c, Dice *d) { c->style()->backgroundBrush = randomBrush(d); },
    [](Control *c, Dice *d) { c->style()->foregroundBrush = randomBrush(d); },
    [](Control *c, Dice *d) { c->style()->borderBrush = randomBrush(d); },
    [](Control *c, Dice *d) { c->style()->borderWidth = d->pick(outlines); },
    [](Control *c, Dice *d) { c->style()->xRadius = d->pick(radii); },
    [](Control *c, Dice *d) { c->style()->yRadius = d->pick(radii); },
    [](Control *c, Dice *d) { c->style()->xRadius = c->style()->yRadius = d->pick(radii); },
    [](Control *c, Dice *d) { c->style()->text = d->pick(captions); },
    [](Control *c, Dice *d) { c->style()->textFlags = d->pick(flagSets); },
    [](Control *c, Dice *d) { c->style()->trimText = d->oneIn(2); },
    [](Control *c, Dice *d) { c->style()->font = randomFont(d); },
    [](Control *c, Dice *d) { c->style()->margins = randomMargins(d); },
    [](Control *c, Dice *d) { c->style()->iconSize = 12 + 6 * d->below(3); },
    [](Control *c, Dice *d) { c->style()->isMouseDown = d->oneIn(2); },
    [](Control *c, Dice *d) { c->setCheck(d->oneIn(2)); },
    [](Control *c, Dice *d) { c->setEnabled(!d->oneIn(4)); },
    [](Control *c, Dice *d) {
        c->style()->icon = d->oneIn(3) ? KELIconFont(ushort('A' + d->below(3))) : KELIconFont();
    },
    [](Control *c, Dice *d) {
        c->style()->pixmap = d->oneIn(6) ? HandDrawing::picture() : QPixmap();
    },
    changeOwnPart,
    changeOwnPart,
};

std::unique_ptr<Control> randomControl(Dice *dice)
{
    using Make = Control *(*)();
    static const std::vector<Make> makers = [] {
        std::vector<Make> all;
        forEachControl([&all](auto tag) {
            using Class = typename decltype(tag)::Type;
            all.push_back([]() -> Control * { return new Class; });
        });
        return all;
    }();
    std::unique_ptr<Control> control(makers[size_t(dice->below(int(makers.size())))]());
    control->setboundRect(QRectF(0, 0, 100, 30));
    for (const Change change : changes) {
        if (dice->oneIn(3))
            change(control.get(), dice);
    }
    return control;
}

// None with more than 8 bits a channel: Qt draws those slightly differently from run to run.
const QImage::Format formats[] = {QImage::Format_ARGB32,
                                  QImage::Format_RGB32,
                                  QImage::Format_RGB16,
                                  QImage::Format_RGB888,
                                  QImage::Format_Grayscale8,
                                  QImage::Format_RGBA8888_Premultiplied,
                                  QImage::Format_ARGB8565_Premultiplied};

// What a record is painted on. Most are as a scene has it, as no look is kept on others.
struct Target
{
    explicit Target(Dice *dice)
    {
        const qreal dprs[] = {1, 1, 1, 1, 1.5, 2};
        const qreal scales[] = {1, 1, 1, 1, 1, 0.5, 0.75, 1.5, 2, 3};
        const QPointF places[] = {{1, 1}, {1, 1}, {1, 1}, {1.25, 1}, {1, 1.5}};
        format = dice->oneIn(8) ? dice->pick(formats) : QImage::Format_ARGB32_Premultiplied;
        size += QSize(dice->oneIn(5), dice->oneIn(5));
        dpr = dice->pick(dprs);
        xScale = dice->pick(scales);
        yScale = dice->oneIn(6) ? dice->pick(scales) : xScale;
        angle = dice->oneIn(20) ? 90 * dice->below(4) + dice->below(3) : 0;
        place = dice->pick(places);
        dirt = dice->below(24);
        state = dice->below(24);
        dirtyPixel = {dice->below(size.width()),
                      dice->oneIn(2) ? size.height() - 1 : dice->below(size.height())};
    }

    QImage blank() const
    {
        QImage image(size, format);
        image.setDevicePixelRatio(dpr);
        image.fill(dirt == 0 ? Qt::gray : Qt::transparent);
        if (dirt == 1 || dirt == 2)
            image.setPixelColor(dirtyPixel, QColor(9, 0, 0, 200));
        return image;
    }

    void begin(QPainter *painter, const Control &control) const
    {
        painter->translate(place);
        painter->scale(xScale, yScale);
        painter->rotate(angle);
        painter->translate(-control.rect().topLeft());
        changeState(painter, control.rect());
    }

    void changeState(QPainter *painter, const QRectF &rect) const
    {
        switch (state) {
        case 0:
            return painter->setOpacity(0.5);
        case 1:
            return painter->setClipRect(rect.adjusted(4, 4, -20, -5));
        case 2:
            return painter->setCompositionMode(QPainter::CompositionMode_Multiply);
        case 3:
            return painter->setPen(QPen(Qt::red, 2));
        case 4:
            return painter->setBrush(Qt::yellow);
        case 5:
            return painter->setFont(QFont(u"DejaVu Serif"_s, 15));
        case 6:
            return painter->setBackgroundMode(Qt::OpaqueMode);
        case 7:
            return painter->setLayoutDirection(Qt::RightToLeft);
        case 8:
            return painter->setCompositionMode(QPainter::CompositionMode_DestinationOver);
        case 9:
            return painter->setBrushOrigin(2, 3);
        case 10:
            return painter->setRenderHint(QPainter::Qt4CompatiblePainting);
        default:
            return;
        }
    }

    QSize size = QSize(118, 50);
    QImage::Format format;
    qreal dpr, xScale, yScale, angle;
    QPointF place;
    QPoint dirtyPixel;
    int dirt, state;
};

void addState(Hash *hash, const QPainter &painter)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << painter.pen() << painter.brush() << painter.font() << painter.transform()
           << painter.brushOrigin() << painter.opacity() << int(painter.renderHints())
           << int(painter.compositionMode()) << int(painter.backgroundMode())
           << painter.hasClipping();
    if (painter.hasClipping())
        stream << painter.clipPath();
    hash->add(bytes);
}

QByteArray pictureBytes(Control *control)
{
    QPicture picture;
    QPainter painter(&picture);
    KelImage::paintTree(&painter, control);
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer);
    return buffer.data();
}

// Without the lines that say when it was written.
QByteArray pdfBytes(Control *control)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        QPainter painter(&writer);
        painter.translate(-control->rect().topLeft());
        KelImage::paintTree(&painter, control);
    }
    QString text = QString::fromLatin1(buffer.data());
    text.remove(QRegularExpression(u"D:\\d{14}[^)]*|<xmp:\\w*Date>[^<]*|uuid:[0-9a-f-]*"_s));
    return text.toLatin1();
}

// Each case ends with a line; the pictures of one can be saved.
struct Report
{
    void end(const char *kind, int number, const QByteArray &what, const Hash &hash,
             const QImage &last) const
    {
        std::printf("%s %d %s %08x\n", kind, number, what.constData(), hash.result());
        if (QByteArray(kind) + ' ' + QByteArray::number(number) != wanted)
            return;
        last.save(file);
        std::exit(0);
    }

    QByteArray wanted;
    QString file;
};

// Paints the control on the target several times, each time into a new picture.
QImage paintRecord(Control *control, const Target &target, int times, Hash *hash)
{
    QImage image;
    for (; times > 0; --times) {
        image = target.blank();
        QPainter painter(&image);
        target.begin(&painter, *control);
        control->paint(&painter, nullptr, nullptr);
        addState(hash, painter);
        KelImage::paintChildren(&painter, control);
        painter.end();
        hash->add(image);
    }
    return image;
}

// Most records are the one before with one thing changed.
void paintRecords(uint seed, int count, const Report &report)
{
    constexpr int vectorInterval = 100; // a record in a file of pictures and pages takes long
    Dice dice(seed);
    std::unique_ptr<Control> control;
    std::unique_ptr<Target> target;
    for (int i = 0; i < count; ++i) {
        if (i == 0 || dice.oneIn(10))
            control = randomControl(&dice);
        else
            dice.pick(changes)(control.get(), &dice);
        if (i == 0 || dice.oneIn(4))
            target = std::make_unique<Target>(&dice);
        Hash hash;
        const QImage last = paintRecord(control.get(), *target, 3 + dice.below(3), &hash);
        if (i % vectorInterval == 0) {
            hash.add(pictureBytes(control.get()));
            hash.add(pdfBytes(control.get()));
        }
        report.end("record", i, control->metaObject()->className(), hash, last);
    }
}

void changeScene(KelTestView *view, Control *control, Hand *hand, Dice *dice)
{
    switch (dice->below(9)) {
    case 0:
        return control->moveBy(dice->below(9) - 4, dice->below(9) / 2.0);
    case 1:
        return view->scale(dice->oneIn(2) ? 1.25 : 0.8, dice->oneIn(2) ? 1.25 : 0.8);
    case 2:
        return view->rotate(dice->oneIn(2) ? 90 : 3);
    case 3:
        return control->setOpacity(dice->oneIn(2) ? 1 : 0.6);
    case 4:
        return control->setCacheMode(QGraphicsItem::CacheMode(dice->below(3)));
    case 5:
        return control->update(control->rect().adjusted(3, 3, -30, -9));
    case 6:
        return hand->press(view->centreOf(control));
    case 7:
        return hand->release();
    default:
        dice->pick(changes)(control, dice);
        return control->update();
    }
}

void showScenes(uint seed, int count, const Report &report)
{
    constexpr int controlsEach = 8;
    constexpr int framesEach = 12;
    Dice dice(seed + 1);
    for (int i = 0; i < count; ++i) {
        KelTestView view;
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QList<Control *> controls;
        for (int n = 0; n < controlsEach; ++n) {
            controls += randomControl(&dice).release();
            controls.last()->setboundRect(QRectF(0, 0, 100, 30));
            controls.last()->setPos(10 + 120 * (n % 3), 10 + 50 * (n / 3));
            view.ownScene.addItem(controls.last());
        }
        Hash hash;
        QImage frame;
        Hand hand(&view);
        view.showOnce();
        for (int n = 0; n < framesEach; ++n) {
            changeScene(&view, controls.at(dice.below(controlsEach)), &hand, &dice);
            letEventsRun();
            frame = view.viewport()->grab().toImage();
            hash.add(frame);
        }
        report.end("scene", i, "view", hash, frame);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{u"seed"_s, u"the seed"_s, u"N"_s, u"1"_s},
                       {u"records"_s, u"how many records"_s, u"N"_s, u"1000"_s},
                       {u"scenes"_s, u"how many scenes"_s, u"N"_s, u"10"_s},
                       {u"save"_s, u"save the last picture of this case, and end"_s, u"CASE"_s},
                       {u"to"_s, u"where to"_s, u"FILE"_s, u"looks.png"_s}});
    parser.addHelpOption();
    parser.process(app);
    const uint seed = parser.value(u"seed"_s).toUInt();
    const Report report{parser.value(u"save"_s).toUtf8(), parser.value(u"to"_s)};
    paintRecords(seed, parser.value(u"records"_s).toInt(), report);
    showScenes(seed, parser.value(u"scenes"_s).toInt(), report);
    std::printf("shapes drawn: %d\n", shapesDrawn());
    return 0;
}
