// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kellabel.h>
#include <kelpushbutton.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>

#include <cmath>

using Look = std::function<void(KELRoundRectControlStyle &)>;
Q_DECLARE_METATYPE(Look)

namespace {

constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QSize canvas(200, 120);

enum class Input { Mouse, Touch };

// A picture without symmetry, so that a wrong scale or corner shows.
QPixmap picture()
{
    QPixmap pixmap(24, 18);
    pixmap.fill(QColor(250, 240, 10));
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, 7, 5, Qt::red);
    painter.fillRect(12, 9, 12, 9, QColor(0, 0, 200, 150));
    return pixmap;
}

QBrush gradient()
{
    QLinearGradient colours(0, 0, 150, 80);
    colours.setColorAt(0, Qt::yellow);
    colours.setColorAt(1, Qt::darkBlue);
    return colours;
}

int halvesUpwards(qreal value)
{
    return int(std::floor(value + 0.5));
}

QPen squarePen(const QBrush &brush, qreal width)
{
    return QPen(brush, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

QString shownCaption(const KELRoundRectControlStyle &style, qreal width)
{
    if (!style.trimText)
        return style.text;
    QStringList kept;
    const QStringList lines = style.text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.isEmpty()) {
            kept += QFontMetrics(style.font)
                        .elidedText(line, Qt::ElideRight, int(width), Qt::TextShowMnemonic);
        }
    }
    return kept.join(QLatin1Char('\n'));
}

void drawShape(QPainter *painter, const KELRoundRectControlStyle &style, QRectF rect)
{
    const bool isOutlined = style.borderBrush.style() != Qt::NoBrush && style.borderWidth > 0;
    if (!isOutlined && style.backgroundBrush.style() == Qt::NoBrush)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(style.backgroundBrush);
    if (isOutlined) {
        const auto width = qreal(style.borderWidth);
        painter->setPen(squarePen(style.borderBrush, width));
        rect.adjust(width / 2, width / 2, -width / 2, -width / 2);
    }
    painter->drawRoundedRect(rect, style.xRadius, style.yRadius, Qt::AbsoluteSize);
}

// What a label with this style in this rectangle looks like.
void drawByHand(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    drawShape(painter, style, rect);
    const QMarginsF &m = style.margins;
    const QRectF content(rect.x() + m.left(), rect.y() + m.top(),
                         rect.width() - m.left() - m.right(), rect.height() - m.top() - m.bottom());
    if (!style.pixmap.isNull()) {
        painter->drawPixmap(halvesUpwards(content.x()), halvesUpwards(content.y()),
                            halvesUpwards(content.width()), halvesUpwards(content.height()),
                            style.pixmap);
    }
    painter->setPen(squarePen(style.foregroundBrush, 1));
    if (!style.icon.isNull()) {
        QFont font(KELIconFont::g_fontFamily, -1, -1, false);
        font.setPixelSize(style.iconSize);
        painter->setFont(font);
        painter->drawText(content, style.textFlags, QString(1, style.icon.getIcon()));
    }
    if (style.foregroundBrush.style() != Qt::NoBrush) {
        painter->setFont(style.font);
        painter->drawText(content, style.textFlags, shownCaption(style, content.width()));
    }
}

QString differenceToHand(KELLabel *label, const QRectF &rect, qreal scale = 1)
{
    const QImage byHand = KelImage::draw(
        canvas, scale, [&](QPainter *painter) { drawByHand(painter, *label->style(), rect); });
    return KelImage::difference(KelImage::paint(label, canvas, scale), byHand);
}

QImage blank(qreal scale = 1)
{
    return KelImage::draw(canvas, scale, [](QPainter *) {});
}

struct NamedLook
{
    const char *name;
    Look look;
};

// What an application may make of a new label.
const std::vector<NamedLook> &looks()
{
    using Style = KELRoundRectControlStyle;
    static const std::vector<NamedLook> all = {
        {"new", [](Style &) {}},
        {"caption", [](Style &s) { s.text = u"Pressure"_s; }},
        {"long caption", [](Style &s) { s.text = u"The pressure in the left pump in bar"_s; }},
        {"long caption, not trimmed",
         [](Style &s) {
             s.text = u"The pressure in the left pump in bar"_s;
             s.trimText = false;
         }},
        {"caption of lines", [](Style &s) { s.text = u"One\n\nTwo && &three\n4"_s; }},
        {"caption in its own font",
         [](Style &s) {
             s.text = u"Pressure"_s;
             s.font.setPixelSize(23);
             s.font.setItalic(true);
         }},
        {"caption at the right and bottom",
         [](Style &s) {
             s.text = u"Pressure"_s;
             s.textFlags = Qt::AlignRight | Qt::AlignBottom;
         }},
        {"caption in a gradient",
         [](Style &s) {
             s.text = u"Pressure"_s;
             s.foregroundBrush = gradient();
         }},
        {"caption without brush",
         [](Style &s) {
             s.text = u"Pressure"_s;
             s.foregroundBrush = QBrush(Qt::NoBrush);
         }},
        {"margins",
         [](Style &s) {
             s.text = u"Pressure"_s;
             s.margins = QMarginsF(30.5, 4, 2, 9.25);
         }},
        {"glyph",
         [](Style &s) {
             s.icon = KELIconFont('W');
             s.iconSize = 25;
         }},
        {"pixmap", [](Style &s) { s.pixmap = picture(); }},
        {"pixmap in margins",
         [](Style &s) {
             s.pixmap = picture();
             s.margins = QMarginsF(3.5, 2.5, 11.25, 4);
         }},
        {"pixmap, glyph and caption",
         [](Style &s) {
             s.pixmap = picture();
             s.icon = KELIconFont('W');
             s.text = u"Pressure"_s;
         }},
        {"fill and round corners",
         [](Style &s) {
             s.backgroundBrush = QColor(40, 50, 60, 170);
             s.xRadius = 12;
             s.yRadius = 7;
             s.text = u"Pressure"_s;
         }},
        {"outline",
         [](Style &s) {
             s.borderWidth = 3.5F;
             s.xRadius = 5;
             s.yRadius = 5;
         }},
        {"fill and outline",
         [](Style &s) {
             s.backgroundBrush = gradient();
             s.borderBrush = QColor(255, 0, 0, 100);
             s.borderWidth = 6;
         }},
    };
    return all;
}

void addLooks()
{
    QTest::addColumn<Look>("look");
    for (const NamedLook &row : looks())
        QTest::newRow(row.name) << row.look;
}

class OpenLabel : public KELLabel
{
public:
    void makeStyleAgain() { m_style = initStyle(); }
};

// A control above a button, both writing down what they are told.
class Stage
{
public:
    explicit Stage(KELRoundRectControl *control) : above(control), below(new KELPushButton)
    {
        below->setboundRect(90, 90, 120, 70);
        view.ownScene.addItem(below);
        above->setboundRect(100, 100, 100, 50);
        above->style()->text = u"Pressure"_s;
        view.ownScene.addItem(above);
        noteGesture(above, &gestureAbove);
        noteGesture(below, &gestureBelow);
        note(above, &KELRoundRectControl::mouseEnter, &hoverAbove, "enter ");
        note(above, &KELRoundRectControl::mouseLeave, &hoverAbove, "leave ");
    }

    void press(Input input)
    {
        // QTest::mousePress() complains when nobody takes the press.
        if (input == Input::Touch)
            view.touchPress(view.centreOf(above));
        else
            send(QEvent::MouseButtonPress, view.centreOf(above), Qt::LeftButton);
    }
    void release(Input input)
    {
        if (input == Input::Touch)
            view.touchRelease(view.centreOf(above));
        else
            view.release(view.centreOf(above));
    }
    void tap(Input input)
    {
        press(input);
        release(input);
    }
    void hover(const QPoint &pos) { send(QEvent::MouseMove, pos, Qt::NoButton); }

    KelTestView view;
    KELRoundRectControl *const above;
    KELPushButton *const below;
    QString gestureAbove;
    QString gestureBelow;
    QString hoverAbove;

private:
    void send(QEvent::Type type, const QPoint &pos, Qt::MouseButton button)
    {
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, button,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    template <typename Signal>
    void note(KELRoundRectControl *control, Signal signal, QString *names, const char *name)
    {
        QObject::connect(control, signal, &view, [names, name] { *names += QLatin1String(name); });
    }
    void noteGesture(KELRoundRectControl *control, QString *names)
    {
        note(control, &KELRoundRectControl::mousePress, names, "press ");
        note(control, &KELRoundRectControl::mouseRelease, names, "release ");
        note(control, &KELRoundRectControl::mouseClicked, names, "click ");
        note(control, &KELRoundRectControl::mouseDoubleClicked, names, "double ");
        note(control, &KELRoundRectControl::mouseLongPress, names, "long ");
    }
};

} // namespace

Q_DECLARE_METATYPE(Input)

void addInputs()
{
    QTest::addColumn<Input>("input");
    QTest::newRow("mouse") << Input::Mouse;
    QTest::newRow("touch") << Input::Touch;
}

class tst_KELLabel : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    // Every tap here is the first of its kind, not the second of a double tap.
    void initTestCase() { QApplication::setDoubleClickInterval(0); }

    void recordHasTheDefaultsOfALabel()
    {
        const KELLabel label;
        const KELRoundRectControlStyle &style = *label.style();
        QCOMPARE(style.foregroundBrush, QBrush(Qt::white));
        QCOMPARE(style.backgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(style.borderWidth, 0.0F);
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.borderBrush, QBrush(Qt::black));
        QCOMPARE(style.xRadius, 0.0);
        QCOMPARE(style.yRadius, 0.0);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
    }

    void inputSettingsAreThoseOfTheBase() { ControlTest::hasInputSettingsOfTheBase<KELLabel>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELLabel>(); }

    void declaresNoInterfaceOfItsOwn()
    {
        const QMetaObject &meta = KELLabel::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELLabel"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(KELLabel().metaObject(), &meta);
    }

    void initStyleChangesThePresentRecord()
    {
        OpenLabel label;
        QMenu menu;
        KELRoundRectControlStyle *const style = label.style();
        style->boundRect = QRectF(1, 2, 3, 4);
        style->foregroundBrush = QBrush(Qt::red);
        style->backgroundBrush = QBrush(Qt::green);
        style->borderBrush = QBrush(Qt::blue);
        style->borderWidth = 7;
        style->xRadius = 5;
        style->text = u"Start"_s;
        style->textFlags = Qt::AlignRight;
        style->trimText = false;
        style->contextMenu = &menu;
        style->iconSize = 12;
        style->isCheck = true;
        label.makeStyleAgain();
        QCOMPARE(label.style(), style);
        QCOMPARE(style->foregroundBrush, QBrush(Qt::white));
        QCOMPARE(style->backgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->borderBrush, QBrush(Qt::blue));
        QCOMPARE(style->xRadius, 5.0);
        QCOMPARE(style->text, u"Start"_s);
        QCOMPARE(style->textFlags, int(Qt::AlignRight));
        QVERIFY(!style->trimText);
        QCOMPARE(style->contextMenu, &menu);
        QCOMPARE(style->iconSize, 12);
        QVERIFY(style->isCheck);
        style->contextMenu = nullptr;
    }

    void captionIsThatOfTheBase()
    {
        KELLabel label;
        QVERIFY(label.text().isNull());
        label.setText(u"Pressure"_s);
        QCOMPARE(label.text(), u"Pressure"_s);
        QCOMPARE(label.style()->text, u"Pressure"_s);
    }

    void newLabelShowsAWhiteCaption()
    {
        KELLabel label;
        label.setboundRect(10, 10, 150, 40);
        label.style()->font.setPixelSize(30);
        label.setText(u"MIM"_s);
        const QImage image = KelImage::paint(&label, canvas);
        bool hasWhite = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                hasWhite = hasWhite || colour == Qt::white;
                // Paper, or paper with white over it: nothing else is drawn.
                QVERIFY(colour.red() >= 198 && colour.green() >= 218 && colour.blue() >= 238);
            }
        }
        QVERIFY(hasWhite);
        QCOMPARE(differenceToHand(&label, QRectF(10, 10, 150, 40)), QString());
    }

    void isTheHandDrawnPicture_data() { addLooks(); }

    void isTheHandDrawnPicture()
    {
        QFETCH(Look, look);
        for (const QRectF &rect :
             {QRectF(10, 10, 150, 90), QRectF(5.3, 7.7, 140.4, 60.6), QRectF(20, 30, 45, 16),
              QRectF(30, 10, 9, 100), QRectF(15, 15, 2, 2), QRectF(-20, -10, 90, 60)}) {
            KELLabel label;
            label.setboundRect(rect);
            look(*label.style());
            QCOMPARE(differenceToHand(&label, rect), QString());
        }
    }

    void isTheHandDrawnPictureScaled_data() { addLooks(); }

    void isTheHandDrawnPictureScaled()
    {
        QFETCH(Look, look);
        KELLabel label;
        label.setboundRect(12.5, 9, 110, 50);
        look(*label.style());
        for (const qreal scale : scales)
            QCOMPARE(differenceToHand(&label, QRectF(12.5, 9, 110, 50), scale), QString());
    }

    void isPaintedAsTheBase_data() { addLooks(); }

    void isPaintedAsTheBase()
    {
        QFETCH(Look, look);
        KELLabel label;
        label.setboundRect(12, 9, 110, 50);
        look(*label.style());
        KELRoundRectControl base;
        label.style()->copy(base.style());
        for (const qreal scale : scales) {
            QCOMPARE(KelImage::difference(KelImage::paint(&label, canvas, scale),
                                          KelImage::paint(&base, canvas, scale)),
                     QString());
        }
    }

    void childIsDrawnAtItsBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 150, 90);
        auto *label = new KELLabel(&parent);
        label->setboundRect(5, 5, 90, 30);
        label->setText(u"Pressure"_s);
        QCOMPARE(label->boundingRect(), QRectF(15, 25, 90, 30));
        QCOMPARE(differenceToHand(label, QRectF(15, 25, 90, 30)), QString());
    }

    void statesDoNotShow_data()
    {
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<bool>("checked");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("pressed") << true << false << true;
        QTest::newRow("checked") << false << true << true;
        QTest::newRow("disabled") << false << false << false;
        QTest::newRow("all of them") << true << true << false;
    }

    void statesDoNotShow()
    {
        QFETCH(bool, pressed);
        QFETCH(bool, checked);
        QFETCH(bool, enabled);
        for (const NamedLook &row : looks()) {
            KELLabel label;
            label.setboundRect(12, 9, 110, 50);
            row.look(*label.style());
            label.style()->isMouseDown = pressed;
            label.setCheck(checked);
            label.setEnabled(enabled);
            QCOMPARE(differenceToHand(&label, QRectF(12, 9, 110, 50)), QString());
        }
    }

    void emptyTextDrawsNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("null") << QString();
        QTest::newRow("empty") << u""_s;
        QTest::newRow("line feeds") << u"\n\n"_s;
        QTest::newRow("blank") << u" "_s;
    }

    void emptyTextDrawsNothing()
    {
        QFETCH(QString, text);
        for (const QRectF &rect :
             {QRectF(10, 10, 150, 90), QRectF(5.3, 7.7, 20.4, 30.6), QRectF(15, 15, 2, 2)}) {
            KELLabel label;
            label.setboundRect(rect);
            label.setText(text);
            for (const qreal scale : scales) {
                QCOMPARE(KelImage::difference(KelImage::paint(&label, canvas, scale), blank(scale)),
                         QString());
            }
        }
    }

    void outlineNeedsAWidth()
    {
        KELLabel label;
        label.setboundRect(10, 10, 150, 90);
        label.style()->borderBrush = QBrush(Qt::red);
        QCOMPARE(KelImage::difference(KelImage::paint(&label, canvas), blank()), QString());
        label.style()->borderWidth = 2;
        QCOMPARE(KelImage::paint(&label, canvas).pixelColor(11, 50), QColor(Qt::red));
        QCOMPARE(differenceToHand(&label, QRectF(10, 10, 150, 90)), QString());
    }

    void paintsNothingOutside_data() { addLooks(); }

    void paintsNothingOutside()
    {
        QFETCH(Look, look);
        for (const QSizeF &size : {QSizeF(110, 50), QSizeF(24, 20)}) {
            KELLabel label;
            label.setboundRect(QRectF(QPointF(12, 8), size));
            look(*label.style());
            // Margins larger than the rectangle move the picture out of it.
            if (size.width() < 50)
                label.style()->margins = QMarginsF();
            for (const qreal scale : scales)
                QCOMPARE(KelImage::pixelsOutside(&label, scale), QString());
        }
    }

    void newTextIsOnTheScreen()
    {
        KelTestView view(canvas);
        view.setBackgroundBrush(QColor(20, 40, 60));
        auto *label = new KELLabel;
        label->setboundRect(10, 10, 150, 40);
        view.ownScene.addItem(label);
        QVERIFY(view.showAndWait());
        const QImage before = view.grab().toImage();
        label->setText(u"Pressure"_s);
        QImage byHand(before.size(), before.format());
        byHand.fill(QColor(20, 40, 60));
        QCOMPARE(KelImage::difference(before, byHand), QString());
        // The view keeps a picture of the label without what is behind it.
        QImage kept(canvas, QImage::Format_ARGB32_Premultiplied);
        kept.fill(Qt::transparent);
        QPainter painter(&kept);
        drawByHand(&painter, *label->style(), QRectF(10, 10, 150, 40));
        painter.end();
        QPainter(&byHand).drawImage(0, 0, kept);
        QVERIFY(byHand != before);
        QTRY_COMPARE(KelImage::difference(view.grab().toImage(), byHand), QString());
    }

    void pressIsReportedAndIgnored_data() { addInputs(); }

    // As by a plain control: it is a panel, below which the scene does not look for another taker.
    void pressIsReportedAndIgnored()
    {
        QFETCH(Input, input);
        for (const bool isLabel : {false, true}) {
            Stage stage(isLabel ? new KELLabel : new KELRoundRectControl);
            QVERIFY(stage.view.showAndWait());
            stage.tap(input);
            QTRY_COMPARE(stage.gestureAbove, u"press long "_s);
            QVERIFY(stage.above->isMouseDown());
            QCOMPARE(stage.gestureBelow, QString());
            QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
        }
    }

    void pressPositionIsInTheLabel()
    {
        Stage stage(new KELLabel);
        const QSignalSpy presses(stage.above, &KELRoundRectControl::mousePress);
        stage.above->setPos(-7, 4);
        QVERIFY(stage.view.showAndWait());
        stage.press(Input::Mouse);
        QCOMPARE(presses.count(), 1);
        QCOMPARE(presses.first().first().toPointF(), QPointF(150, 125));
    }

    void tapGoesToTheItemBelowWithoutButtons_data() { addInputs(); }

    void tapGoesToTheItemBelowWithoutButtons()
    {
        QFETCH(Input, input);
        Stage stage(new KELLabel);
        stage.above->setAcceptedMouseButtons(Qt::NoButton);
        QVERIFY(stage.view.showAndWait());
        stage.tap(input);
        QCOMPARE(stage.gestureBelow, u"press release click "_s);
        QCOMPARE(stage.gestureAbove, QString());
    }

    void tapInAButtonGoesToTheButton_data() { addInputs(); }

    void tapInAButtonGoesToTheButton()
    {
        QFETCH(Input, input);
        Stage stage(new KELLabel);
        stage.below->setboundRect(0, 0, 220, 170);
        stage.above->setParentItem(stage.below);
        QVERIFY(stage.view.showAndWait());
        stage.tap(input);
        QCOMPARE(stage.gestureBelow, u"press release click "_s);
        QCOMPARE(stage.gestureAbove, QString());
    }

    void hoverIsNotReported()
    {
        Stage stage(new KELLabel);
        QVERIFY(stage.view.showAndWait());
        stage.hover(QPoint(20, 20));
        stage.hover(QPoint(150, 125));
        stage.hover(QPoint(20, 20));
        QCOMPARE(stage.hoverAbove, QString());
        stage.above->setAcceptHoverEvents(true);
        stage.hover(QPoint(150, 125));
        stage.hover(QPoint(20, 20));
        QCOMPARE(stage.hoverAbove, u"enter leave "_s);
    }

    void selectableLabelIsTapped()
    {
        Stage stage(new KELLabel);
        stage.above->setFlag(QGraphicsItem::ItemIsSelectable);
        QVERIFY(stage.view.showAndWait());
        stage.tap(Input::Mouse);
        QCOMPARE(stage.gestureAbove, u"press release click "_s);
        QCOMPARE(stage.gestureBelow, QString());
    }
};

KEL_TEST_MAIN(tst_KELLabel)
#include "tst_kellabel.moc"
