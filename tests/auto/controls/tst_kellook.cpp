// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "keltest.h"
#include "paintcount.h"
#include "rows.h"
#include "stage.h"

#include <QtCore/QThread>
#include <QtGui/QPaintEngine>
#include <QtGui/QPicture>

#include <malloc.h>
#include <memory>

// What a control has drawn once may be given back instead of being drawn again: nobody must see
// that.

namespace {

using Control = std::unique_ptr<KELRoundRectControl>;
using Change = std::function<void(KELRoundRectControl *)>;

struct ControlClass
{
    QByteArray name;
    KELRoundRectControl *(*make)();
};

template <typename Class>
KELRoundRectControl *make()
{
    return new Class;
}

const std::vector<ControlClass> &controlClasses()
{
    static const std::vector<ControlClass> classes = [] {
        std::vector<ControlClass> all;
        forEachControl([&all](auto tag) {
            using Class = typename decltype(tag)::Type;
            all.push_back({Class::staticMetaObject.className(), make<Class>});
        });
        return all;
    }();
    return classes;
}

// The picture, and what a paint leaves behind in the painter.
struct Painted
{
    QImage image;
    QPen pen;
    QBrush brush;
    QFont font;
    QPainter::RenderHints hints;
    QPointF brushOrigin;
    QPainterPath clip;
};

struct Target
{
    QSize size = QSize(126, 66);
    QImage::Format format = QImage::Format_ARGB32_Premultiplied;
    qreal dpr = 1;
    QTransform transform = QTransform::fromTranslate(3, 3);
    std::function<void(QImage *)> prepare = [](QImage *) {};
    std::function<void(QPainter *)> begin = [](QPainter *) {};
};

enum class Keep { No, Yes };

Painted paint(KELRoundRectControl *control, const Target &target, Keep keep)
{
    const int bytesPerLine = QImage(target.size, target.format).bytesPerLine();
    // Rows with a gap between them are always drawn.
    const int gap = keep == Keep::No ? 64 : 0;
    std::vector<uchar> bytes(size_t((bytesPerLine + gap) * target.size.height()));
    QImage image(bytes.data(), target.size.width(), target.size.height(), bytesPerLine + gap,
                 target.format);
    image.setDevicePixelRatio(target.dpr);
    image.fill(Qt::transparent);
    target.prepare(&image);
    QPainter painter(&image);
    painter.setTransform(target.transform);
    target.begin(&painter);
    control->paint(&painter, nullptr, nullptr);
    const QImage picture = image.copy();
    return {picture,           painter.pen(),         painter.brush(),
            painter.font(),    painter.renderHints(), painter.brushOrigin(),
            painter.clipPath()};
}

QString difference(const Painted &actual, const Painted &expected)
{
    if (actual.image != expected.image)
        return KelImage::difference(actual.image, expected.image);
    if (actual.pen != expected.pen)
        return u"another pen"_s;
    if (actual.brush != expected.brush)
        return u"another brush"_s;
    if (actual.font != expected.font)
        return u"another font"_s;
    if (actual.hints != expected.hints || actual.brushOrigin != expected.brushOrigin
        || actual.clip != expected.clip)
        return u"another state"_s;
    return QString();
}

// Empty if all paints come out as drawn: the first ones, from which the look is kept, and those
// that get it back.
QString differenceInPaints(KELRoundRectControl *control, const Target &target = Target())
{
    const Painted expected = paint(control, target, Keep::No);
    for (int i = 0; i < 4; ++i) {
        const QString found = difference(paint(control, target, Keep::Yes), expected);
        if (!found.isEmpty())
            return u"paint %1: "_s.arg(i) + found;
    }
    return QString();
}

// What a small push button has drawn: 0 if it was given back.
int shapesOf(KELPushButton *button, QRgb colour, qreal scale = 1)
{
    Target target;
    target.size = QSize(16, 16) * scale;
    target.transform.scale(scale, scale);
    button->style()->backgroundBrush = QColor(colour);
    const int before = shapesDrawn();
    paint(button, target, Keep::Yes);
    return shapesDrawn() - before;
}

// A control with everything that a look depends on.
Control makeRich(const ControlClass &controlClass)
{
    Control control(controlClass.make());
    KELRoundRectControlStyle *const style = control->style();
    control->setboundRect(0, 0, 120, 60);
    style->backgroundBrush = QColor(80, 100, 120, 200);
    style->foregroundBrush = QColor(250, 240, 0);
    style->borderBrush = QColor(255, 255, 255, 200);
    style->borderWidth = 2;
    style->xRadius = 9;
    style->yRadius = 7;
    style->text = u"Start the pump of the third tank"_s;
    style->textFlags = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
    style->icon = KELIconFont('A');
    style->iconSize = 20;
    style->font.setPointSize(11);
    style->margins = QMarginsF(2, 3, 4, 5);
    if (auto *box = qobject_cast<KELCheckBox *>(control.get()))
        static_cast<KELCheckBoxStyle *>(box->style())->indicatorBrush = QColor(0, 90, 160);
    if (qobject_cast<KELRadioBox *>(control.get()))
        control->setCheck(true);
    if (auto *slide = qobject_cast<KELSlideControl *>(control.get()))
        slide->setValue(30);
    if (auto *bar = qobject_cast<KELProcessBar *>(control.get()))
        bar->setValue(30);
    return control;
}

struct FieldChange
{
    const char *name;
    Change change;
};

KELPushButtonStyle *buttonStyle(KELRoundRectControl *control)
{
    return qobject_cast<KELPushButton *>(control)
        ? static_cast<KELPushButtonStyle *>(control->style())
        : nullptr;
}

const FieldChange fieldChanges[] = {
    {"x", [](auto *c) { c->setboundRect(c->rect().translated(1, 0)); }},
    {"y", [](auto *c) { c->setboundRect(c->rect().translated(0, 0.5)); }},
    {"width", [](auto *c) { c->setboundRect(c->rect().adjusted(0, 0, -1, 0)); }},
    {"height", [](auto *c) { c->setboundRect(c->rect().adjusted(0, 0, 0, -1)); }},
    {"x radius", [](auto *c) { c->style()->xRadius = 5; }},
    {"y radius", [](auto *c) { c->style()->yRadius = 5; }},
    {"outline", [](auto *c) { c->style()->borderWidth = 3; }},
    {"no outline", [](auto *c) { c->style()->borderWidth = 0; }},
    {"background", [](auto *c) { c->style()->backgroundBrush = QColor(80, 100, 120, 201); }},
    {"background with more bits",
     [](auto *c) {
         c->style()->backgroundBrush = QColor::fromRgba64(80 * 257 + 3, 100 * 257, 120 * 257,
                                                          200 * 257);
     }},
    {"background without a style",
     [](auto *c) { c->style()->backgroundBrush.setStyle(Qt::NoBrush); }},
    {"background in another system",
     [](auto *c) { c->style()->backgroundBrush = c->style()->backgroundBrush.color().toHsv(); }},
    {"no background", [](auto *c) { c->style()->backgroundBrush = QBrush(Qt::NoBrush); }},
    {"foreground", [](auto *c) { c->style()->foregroundBrush = QColor(250, 241, 0); }},
    {"no foreground", [](auto *c) { c->style()->foregroundBrush = QBrush(Qt::NoBrush); }},
    {"border", [](auto *c) { c->style()->borderBrush = QColor(255, 254, 255, 200); }},
    {"no border", [](auto *c) { c->style()->borderBrush = QBrush(Qt::NoBrush); }},
    {"gradient",
     [](auto *c) {
         QLinearGradient gradient(0, 0, 120, 0);
         gradient.setColorAt(0, Qt::red);
         c->style()->backgroundBrush = gradient;
     }},
    {"pattern", [](auto *c) { c->style()->backgroundBrush = QBrush(Qt::red, Qt::Dense4Pattern); }},
    {"text", [](auto *c) { c->style()->text = u"Start the pump of the third tanl"_s; }},
    {"no text", [](auto *c) { c->style()->text.clear(); }},
    {"alignment",
     [](auto *c) { c->style()->textFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap; }},
    {"trimming", [](auto *c) { c->style()->trimText = !c->style()->trimText; }},
    {"font", [](auto *c) { c->style()->font.setPointSize(12); }},
    {"bold", [](auto *c) { c->style()->font.setBold(true); }},
    {"left margin", [](auto *c) { c->style()->margins.setLeft(9); }},
    {"top margin", [](auto *c) { c->style()->margins.setTop(9); }},
    {"right margin", [](auto *c) { c->style()->margins.setRight(9); }},
    {"bottom margin", [](auto *c) { c->style()->margins.setBottom(9); }},
    {"glyph", [](auto *c) { c->style()->icon = KELIconFont('B'); }},
    {"no glyph", [](auto *c) { c->style()->icon = KELIconFont(); }},
    {"font of the glyph",
     [](auto *c) {
         KELIconFont::g_fontFamily = u"DejaVu Serif"_s;
         c->style()->icon = KELIconFont('A');
         KELIconFont::g_fontFamily.clear();
     }},
    {"size of the glyph", [](auto *c) { c->style()->iconSize = 25; }},
    {"pixmap",
     [](auto *c) {
         c->style()->pixmap = QPixmap(30, 20);
         c->style()->pixmap.fill(Qt::darkCyan);
     }},
    {"checked", [](auto *c) { c->setCheck(!c->isCheck()); }},
    {"pressed", [](auto *c) { c->style()->isMouseDown = true; }},
    {"disabled", [](auto *c) { c->setEnabled(false); }},
    {"left margin of the icon",
     [](auto *c) {
         if (KELPushButtonStyle *style = buttonStyle(c))
             style->iconMargins.setLeft(30);
     }},
    {"top margin of the icon",
     [](auto *c) {
         if (KELPushButtonStyle *style = buttonStyle(c))
             style->iconMargins.setTop(6);
     }},
    {"right margin of the icon",
     [](auto *c) {
         if (KELPushButtonStyle *style = buttonStyle(c))
             style->iconMargins.setRight(30);
     }},
    {"bottom margin of the icon",
     [](auto *c) {
         if (KELPushButtonStyle *style = buttonStyle(c))
             style->iconMargins.setBottom(6);
     }},
    {"knob of a check box",
     [](auto *c) {
         if (qobject_cast<KELCheckBox *>(c))
             static_cast<KELCheckBoxStyle *>(c->style())->indicatorBrush = QColor(0, 90, 161);
     }},
    {"value",
     [](auto *c) {
         if (auto *slide = qobject_cast<KELSlideControl *>(c))
             slide->setValue(31);
         if (auto *bar = qobject_cast<KELProcessBar *>(c))
             bar->setValue(31);
     }},
    {"maximum below the value",
     [](auto *c) {
         if (auto *slide = qobject_cast<KELSlideControl *>(c))
             slide->setMaximun(10);
     }},
};

struct TargetChange
{
    const char *name;
    std::function<void(Target *)> change;
};

// A pixel that is not blank.
std::function<void(QImage *)> pixelAt(int x, int y)
{
    return [x, y](QImage *image) { image->setPixelColor(x, y, QColor(0, 0, 0, 1)); };
}

template <typename Begin>
std::function<void(Target *)> begun(Begin begin)
{
    return [begin](Target *target) { target->begin = begin; };
}

const TargetChange targetChanges[] = {
    {"as a scene paints it", [](Target *) {}},
    {"another width", [](Target *t) { t->size.rwidth() = 100; }},
    {"another height", [](Target *t) { t->size.rheight() = 40; }},
    {"a quarter of a pixel to the right", [](Target *t) { t->transform.translate(0.25, 0); }},
    {"a quarter of a pixel further down", [](Target *t) { t->transform.translate(0, 0.25); }},
    {"scaled", [](Target *t) { t->transform.scale(0.75, 0.75); }},
    {"scaled in one direction", [](Target *t) { t->transform.scale(1, 0.75); }},
    {"mirrored", [](Target *t) { t->transform = QTransform(-1, 0, 0, 1, 123, 3); }},
    {"turned", [](Target *t) { t->transform.rotate(5); }},
    {"in perspective", [](Target *t) { t->transform = QTransform(1, 0, 0.001, 0, 1, 0, 3, 3, 1); }},
    {"two pixels for one", [](Target *t) { t->dpr = 2; }},
    {"first pixel", [](Target *t) { t->prepare = pixelAt(0, 0); }},
    {"second pixel", [](Target *t) { t->prepare = pixelAt(1, 0); }},
    {"last pixel of a row", [](Target *t) { t->prepare = pixelAt(125, 30); }},
    {"pixel of the first row with ink", [](Target *t) { t->prepare = pixelAt(125, 3); }},
    {"pixel of the last row with ink", [](Target *t) { t->prepare = pixelAt(0, 62); }},
    {"first pixel of the last row", [](Target *t) { t->prepare = pixelAt(0, 65); }},
    {"last pixel", [](Target *t) { t->prepare = pixelAt(125, 65); }},
    {"opaque", [](Target *t) { t->prepare = [](QImage *image) { image->fill(Qt::gray); }; }},
    {"finer fonts",
     [](Target *t) { t->prepare = [](QImage *image) { image->setDotsPerMeterY(6000); }; }},
    {"clip", begun([](QPainter *p) { p->setClipRect(10, 10, 30, 30); })},
    {"clip that is off", begun([](QPainter *p) {
         p->setClipRect(10, 10, 30, 30);
         p->setClipping(false);
     })},
    {"clip of the system",
     [](Target *t) {
         t->prepare = [](QImage *image) {
             image->paintEngine()->setSystemClip(QRect(10, 10, 30, 30));
         };
     }},
    {"opacity", begun([](QPainter *p) { p->setOpacity(0.5); })},
    {"composition",
     begun([](QPainter *p) { p->setCompositionMode(QPainter::CompositionMode_DestinationOver); })},
    {"opaque background", begun([](QPainter *p) { p->setBackgroundMode(Qt::OpaqueMode); })},
    {"pen", begun([](QPainter *p) { p->setPen(QPen(Qt::red, 3)); })},
    {"no pen", begun([](QPainter *p) { p->setPen(Qt::NoPen); })},
    {"brush", begun([](QPainter *p) { p->setBrush(Qt::red); })},
    {"brush that is none", begun([](QPainter *p) { p->setBrush(QBrush(Qt::red, Qt::NoBrush)); })},
    {"font", begun([](QPainter *p) {
         QFont font;
         font.setPixelSize(22);
         p->setFont(font);
     })},
    {"hints", begun([](QPainter *p) { p->setRenderHint(QPainter::Qt4CompatiblePainting); })},
    {"brush origin", begun([](QPainter *p) { p->setBrushOrigin(2, 2); })},
    {"from right to left", begun([](QPainter *p) { p->setLayoutDirection(Qt::RightToLeft); })},
    {"ARGB32", [](Target *t) { t->format = QImage::Format_ARGB32; }},
    {"RGB32", [](Target *t) { t->format = QImage::Format_RGB32; }},
    {"RGB16", [](Target *t) { t->format = QImage::Format_RGB16; }},
    {"RGB888", [](Target *t) { t->format = QImage::Format_RGB888; }},
    {"RGBA8888", [](Target *t) { t->format = QImage::Format_RGBA8888_Premultiplied; }},
    {"A2RGB30", [](Target *t) { t->format = QImage::Format_A2RGB30_Premultiplied; }},
    {"Grayscale8", [](Target *t) { t->format = QImage::Format_Grayscale8; }},
};

std::vector<Named> lookedUp(const QByteArrayList &names)
{
    std::vector<Named> found;
    for (const Named &change : namesOf(targetChanges)) {
        if (names.contains(change.name))
            found.push_back(change);
    }
    return found;
}

qint64 allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

const QRectF barRect(20, 20, 200, 60);

void mark(QPainter *painter)
{
    painter->fillRect(barRect, Qt::magenta);
}

class MarkedBar : public KELProcessBar
{
    Q_OBJECT

public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        KELProcessBar::paint(painter, option, widget);
        mark(painter);
    }
};

// Has a bar painted into its own picture.
class BarPainter : public PlainItem
{
    Q_OBJECT

public:
    explicit BarPainter(KELProcessBar *bar) :
        PlainItem(barRect.adjusted(-10, -10, 10, 10)), m_bar(bar)
    {
        setCacheMode(DeviceCoordinateCache);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        m_bar->paint(painter, option, widget);
        mark(painter);
    }

private:
    KELProcessBar *const m_bar;
};

// The view, when the item is painted once more.
QImage repainted(KelTestView *view, QGraphicsItem *item)
{
    item->update();
    return view->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class tst_KELLook : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldCounts_data()
    {
        addRows({{"class", namesOf(controlClasses())}, {"field", namesOf(fieldChanges)}});
    }

    // A look that is kept is not that of a control which differs in one field.
    void everyFieldCounts()
    {
        const Control control = makeRich(controlClasses().at(fetch<size_t>("class")));
        QCOMPARE(differenceInPaints(control.get()), QString());
        fieldChanges[fetch<size_t>("field")].change(control.get());
        QCOMPARE(differenceInPaints(control.get()), QString());
    }

    void targetCounts_data()
    {
        addRows({{"class", namesOf(controlClasses())}, {"target", namesOf(targetChanges)}});
    }

    void targetCounts()
    {
        const Control control = makeRich(controlClasses().at(fetch<size_t>("class")));
        QCOMPARE(differenceInPaints(control.get()), QString());
        Target target;
        targetChanges[fetch<size_t>("target")].change(&target);
        QCOMPARE(differenceInPaints(control.get(), target), QString());
        QCOMPARE(differenceInPaints(control.get()), QString());
        // A look that comes to such a target first.
        control->setboundRect(0, 0, 119, 59);
        QCOMPARE(differenceInPaints(control.get(), target), QString());
        QCOMPARE(differenceInPaints(control.get()), QString());
    }

    void pixmapCounts_data() { addRows({{"class", namesOf(controlClasses())}}); }

    void pixmapCounts()
    {
        const Control control = makeRich(controlClasses().at(fetch<size_t>("class")));
        control->style()->pixmap = QPixmap(30, 20);
        for (const Qt::GlobalColor colour : {Qt::darkCyan, Qt::darkRed}) {
            control->style()->pixmap.fill(colour);
            QCOMPARE(differenceInPaints(control.get()), QString());
        }
    }

    void gradientCounts_data() { addRows({{"class", namesOf(controlClasses())}}); }

    // Where nothing but its colours tells one from another.
    void gradientCounts()
    {
        const Control control = makeRich(controlClasses().at(fetch<size_t>("class")));
        for (const Qt::GlobalColor colour : {Qt::darkCyan, Qt::darkRed}) {
            QLinearGradient gradient(0, 0, 120, 0);
            gradient.setColorAt(0, colour);
            control->style()->backgroundBrush = gradient;
            QCOMPARE(differenceInPaints(control.get()), QString());
        }
    }

    // What a font leaves open comes from there.
    void fontOfTheApplicationCounts()
    {
        const QFont before = QApplication::font();
        KELPushButton button;
        button.setboundRect(0, 0, 120, 60);
        button.setText(u"Start"_s);
        button.style()->font = QFont();
        button.style()->font.setPixelSize(15);
        QCOMPARE(differenceInPaints(&button), QString());
        QFont other(u"DejaVu Serif"_s);
        other.setPixelSize(20);
        QApplication::setFont(other);
        QCOMPARE(differenceInPaints(&button), QString());
        QApplication::setFont(before);
    }

    void ownPenAndBrushOfThePainter_data()
    {
        addRows(
            {{"class", namesOf(controlClasses())},
             {"target",
              lookedUp({"pen", "no pen", "brush", "brush that is none", "opaque background"})}});
    }

    // Some controls draw with what the painter has if they have none themselves.
    void ownPenAndBrushOfThePainter()
    {
        const Control control = makeRich(controlClasses().at(fetch<size_t>("class")));
        control->style()->borderBrush = QBrush(Qt::NoBrush);
        control->style()->backgroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(differenceInPaints(control.get()), QString());
        Target target;
        targetChanges[fetch<size_t>("target")].change(&target);
        QCOMPARE(differenceInPaints(control.get(), target), QString());
    }

    // The same rounded rectangle differs by some pixels from place to place.
    void placeCounts()
    {
        KELRoundRectControl control;
        control.style()->xRadius = 2.5;
        control.style()->yRadius = 2.5;
        control.style()->borderWidth = 3;
        control.style()->backgroundBrush = QColor(80, 100, 120, 200);
        QImage first;
        int outcomes = 0;
        for (int i = 0; i < 3000; ++i) {
            const QPointF place(i * 7 % 4999, i * 13 % 2999);
            control.setboundRect(QRectF(place, QSizeF(100, 30)));
            Target target;
            target.size = QSize(102, 32);
            target.transform = QTransform::fromTranslate(1 - place.x(), 1 - place.y());
            const Painted expected = paint(&control, target, Keep::No);
            if (i == 0)
                first = expected.image;
            outcomes += expected.image == first ? 0 : 1;
            for (int again = 0; again < 3; ++again)
                QCOMPARE(difference(paint(&control, target, Keep::Yes), expected), QString());
        }
        QVERIFY(outcomes > 0); // without them it would test nothing
    }

    void progressBarsClipStaysOnThePainter()
    {
        KELProcessBar bar;
        bar.setboundRect(0, 0, 120, 60);
        for (int i = 0; i < 4; ++i) {
            Target target;
            QImage image(target.size, target.format);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            bar.paint(&painter, nullptr);
            QCOMPARE(painter.clipBoundingRect(), QRectF(0, 15, 120, 30));
        }
    }

    void whatIsDrawnOnAProgressBarInAViewIsClipped_data()
    {
        QTest::addColumn<bool>("derived");
        QTest::newRow("by a derived class") << true;
        QTest::newRow("by another item") << false;
    }

    // A bar in the picture that the scene keeps of it has no need of its clip. Nobody draws there.
    void whatIsDrawnOnAProgressBarInAViewIsClipped()
    {
        QFETCH(const bool, derived);
        KelTestView view;
        KELProcessBar *const bar = derived ? new MarkedBar : new KELProcessBar;
        bar->setboundRect(barRect);
        view.ownScene.addItem(bar);
        QGraphicsItem *marked = bar;
        if (!derived)
            view.ownScene.addItem(marked = new BarPainter(bar));
        QVERIFY(view.showAndWait());
        const QImage first = repainted(&view, marked);
        QVERIFY(first.pixelColor(120, 50) == Qt::magenta);
        QVERIFY(first.pixelColor(21, 21) != Qt::magenta);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(KelImage::difference(repainted(&view, marked), first), QString());
    }

    // More captions than there is room for, each in six looks.
    // Not only as long as no other look comes between.
    void looksInTurnAreGivenBack()
    {
        KELPushButton button;
        button.setboundRect(0, 0, 10, 10);
        int shapes = 0;
        for (int round = 0; round < 5; ++round) {
            shapes = 0;
            for (QRgb colour = 0; colour < 300; ++colour)
                shapes += shapesOf(&button, colour);
        }
        QCOMPARE(shapes, 0);
    }

    void scaledLooksAreGivenBack()
    {
        KELPushButton button;
        button.setboundRect(0, 0, 10, 10);
        for (int i = 0; i < 2; ++i)
            QVERIFY(shapesOf(&button, 0x123456, 2) > 0);
        QCOMPARE(shapesOf(&button, 0x123456, 2), 0);
    }

    void otherThreadsDraw()
    {
        KELPushButton button;
        button.setboundRect(0, 0, 10, 10);
        for (int i = 0; i < 3; ++i)
            shapesOf(&button, 0x654321);
        QCOMPARE(shapesOf(&button, 0x654321), 0);
        int shapes = 0;
        const std::unique_ptr<QThread> thread(
            QThread::create([&] { shapes = shapesOf(&button, 0x654321); }));
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY(shapes > 0);
    }

    // However many came before.
    void firstSightIsNotKept()
    {
        KELPushButton button;
        button.setboundRect(0, 0, 10, 10);
        QRgb colour = 0x10000;
        for (; colour < 0x10000 + 20000; ++colour)
            shapesOf(&button, colour);
        int kept = 0;
        for (int i = 0; i < 100; ++i, ++colour) {
            QVERIFY(shapesOf(&button, colour) > 0);
            kept += shapesOf(&button, colour) == 0 ? 1 : 0;
        }
        QVERIFY2(kept < 20, QByteArray::number(kept));
    }

    void storeIsBounded()
    {
        constexpr qint64 storeBytes = 2 * 1024 * 1024;
        constexpr qint64 otherBytes = 200 * 1024; // of Qt: glyphs, for example
        const QColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::gray, Qt::cyan, Qt::black};
        KELPushButton button;
        button.setboundRect(0, 0, 120, 60);
        const auto paintTexts = [&](int first, int end) {
            for (int i = first; i < end; ++i) {
                button.style()->text = QString::number(i);
                for (const QColor &colour : colours) {
                    button.style()->backgroundBrush = colour;
                    for (int again = 0; again < 3; ++again)
                        paint(&button, Target(), Keep::Yes);
                }
            }
        };
        paintTexts(0, 20);
        const qint64 before = allocatedBytes();
        for (int end = 1000; end <= 10000; end += 1000) {
            paintTexts(end - 1000, end);
            const qint64 grown = allocatedBytes() - before;
            QVERIFY2(grown < storeBytes + otherBytes, QByteArray::number(grown));
        }
    }
};

KEL_TEST_MAIN(tst_KELLook)
#include "tst_kellook.moc"
