// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "handdrawing.h"
#include "quickwindow.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELIconFont>
#include <KELLabel>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSlideControl>
#include <QtGui/QImage>
#include <QtGui/QLinearGradient>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyleOptionComplex>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

using Paint = std::function<void(QPainter *)>;

const QString caption = QStringLiteral("Settings");
const QString longCaption = QStringLiteral("Temperature of the room");
const QChar glyph = QChar(0x2605);

QPixmap makePicture()
{
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QLinearGradient gradient(0, 0, 48, 48);
    gradient.setColorAt(0, QColor(255, 128, 0));
    gradient.setColorAt(1, QColor(0, 64, 255, 64));
    painter.setBrush(gradient);
    painter.drawEllipse(2, 2, 44, 44);
    return pixmap;
}

// What a scene gives an item whose cache mode is DeviceCoordinateCache: a picture of its own with
// one pixel more on each side, empty before each paint.
class Canvas
{
public:
    explicit Canvas(const QRect &rect) :
        m_image(rect.size() + QSize(2, 2), QImage::Format_ARGB32_Premultiplied)
    {
        m_painter.begin(&m_image);
        m_painter.setRenderHints(QPainter::TextAntialiasing);
        m_painter.translate(QPoint(1, 1) - rect.topLeft());
    }

    // Every paint finds canvas and painter as the scene hands them over.
    template <typename Run>
    void paint(Run run)
    {
        m_image.fill(Qt::transparent);
        paintOver(run);
    }
    template <typename Run>
    void paintOver(Run run)
    {
        m_painter.save();
        run(&m_painter);
        m_painter.restore();
    }

    const QImage &image() const { return m_image; }

private:
    Q_DISABLE_COPY(Canvas)

    QImage m_image;
    QPainter m_painter;
};

template <typename Control>
Paint painted(const Control &control)
{
    return [&control](QPainter *painter) {
        const_cast<Control &>(control).paint(painter, nullptr, nullptr);
    };
}

// An item of a scenario, by hand and by the library.
struct Part
{
    QRect rect;
    Paint floor;
    Paint library;
};

class Scenario
{
public:
    Scenario(const char *what, const QSize &size) :
        m_size(size),
        m_name("paint, " + QByteArray(what) + ", " + QByteArray::number(size.width()) + " x "
               + QByteArray::number(size.height()))
    { }

    QRectF rect() const { return QRectF(QPointF(), m_size); }

    void run(const Paint &floor, const Paint &library) const
    {
        run({{rect().toRect(), floor, library}});
    }

    void run(const std::vector<Part> &parts) const
    {
        measure("QPainter", Benchmark::Role::Floor, parts, &Part::floor);
        measure(Benchmark::libraryName(), Benchmark::libraryRole(), parts, &Part::library);
        const bool isSame = std::all_of(parts.begin(), parts.end(), [](const Part &part) {
            const QImage floor = imageOf(part, &Part::floor);
            return floor == imageOf(part, &Part::library) && !isBlank(floor);
        });
        Benchmark::printValue(m_name, Benchmark::libraryName(), "same pixels",
                              isSame ? "yes" : "no");
    }

    // Only the last of the paints that follow each change counts.
    template <typename Control, typename Change>
    static void runChanged(const QByteArray &name, Control *control, Change change, int paints)
    {
        measureEach(name, [&](Benchmark::Meter *meter) {
            change();
            Canvas canvas(control->boundingRect().toRect());
            for (int paint = 1; paint < paints; ++paint)
                canvas.paint(painted(*control));
            canvas.paint([&](QPainter *painter) {
                meter->measure([&] { control->paint(painter, nullptr, nullptr); });
            });
        });
    }

    // Over what is there already.
    template <typename Control>
    static void runOverWhite(const QByteArray &name, Control *control)
    {
        Canvas canvas(control->boundingRect().toRect());
        canvas.paint(painted(*control));
        canvas.paint(
            [&](QPainter *painter) { painter->fillRect(control->boundingRect(), Qt::white); });
        measureEach(name, [&](Benchmark::Meter *meter) {
            canvas.paintOver([&](QPainter *painter) {
                meter->measure([&] { control->paint(painter, nullptr, nullptr); });
            });
        });
    }

    // The widget by its style, as it paints itself in a window, and in a proxy.
    template <typename Widget>
    void runWidget(Widget *widget, void (*paint)(const Widget *, QPainter *)) const
    {
        widget->resize(m_size);
        widget->ensurePolished();
        measureOther("Qt Widgets", [=](QPainter *painter) { paint(widget, painter); });

        QGraphicsProxyWidget proxy;
        proxy.setWidget(widget);
        QStyleOptionGraphicsItem option;
        option.exposedRect = proxy.rect();
        measureOther("QGraphicsProxyWidget",
                     [&](QPainter *painter) { proxy.paint(painter, &option, nullptr); });
    }

    void runQuick(const char *item) const
    {
        static const QByteArray contender = "Qt Quick Controls 2";
        if (!Benchmark::isWanted(Benchmark::Role::Other))
            return;
        QuickWindow window(m_size, item);
        if (!window.isReady()) {
            Benchmark::leaveOut(m_name, contender, window.reason());
            return;
        }
        Benchmark::measure(m_name, contender, Benchmark::Role::Other, usual,
                           [&window](int first, int last) {
                               for (int i = first; i < last; ++i)
                                   window.paint();
                           });
    }

private:
    static constexpr int usual = 1000;

    template <typename Run>
    static void measureEach(const QByteArray &name, Run run)
    {
        // Each changes the look, and what a change costs differs: more of them.
        const int repetitions = Benchmark::repetitions(3 * usual);
        Benchmark::Meter unread;
        for (int i = 0; i < 3; ++i)
            run(&unread); // warm-up
        Benchmark::Meter meter;
        for (int i = 0; i < repetitions; ++i)
            run(&meter);
        meter.report(name, Benchmark::libraryName(), Benchmark::libraryRole(), repetitions);
    }

    static QImage imageOf(const Part &part, Paint Part::*paint)
    {
        Canvas canvas(part.rect);
        canvas.paint(part.*paint);
        return canvas.image();
    }

    static bool isBlank(const QImage &image)
    {
        QImage blank(image.size(), image.format());
        blank.fill(Qt::transparent);
        return image == blank;
    }

    void measureOther(const char *contender, const Paint &paint) const
    {
        measure(contender, Benchmark::Role::Other, {{rect().toRect(), paint, paint}}, &Part::floor);
    }

    void measure(const QByteArray &contender, Benchmark::Role role, const std::vector<Part> &parts,
                 Paint Part::*paint) const
    {
        if (!Benchmark::isWanted(role))
            return;
        const int repetitions = Benchmark::repetitions(usual);
        std::deque<Canvas> canvases;
        for (const Part &part : parts) {
            canvases.emplace_back(part.rect);
            for (int warmUp = 0; warmUp < 3; ++warmUp)
                canvases.back().paint(part.*paint);
        }
        Benchmark::Meter meter;
        for (int i = 0; i < repetitions; ++i) {
            for (std::size_t k = 0; k < parts.size(); ++k) {
                canvases[k].paint(
                    [&](QPainter *painter) { meter.measure([&] { (parts[k].*paint)(painter); }); });
            }
        }
        meter.report(m_name, contender, role, repetitions);
    }

    const QSize m_size;
    const QByteArray m_name;
};

template <typename Drawing>
Paint drawn(const Drawing &drawing)
{
    return [&drawing](QPainter *painter) { drawing.draw(painter); };
}

// Opens what a widget's own paintEvent() calls first.
template <typename Widget, typename Option>
struct Opened : Widget
{
    Opened() = default;

    Option option() const
    {
        Option filled;
        this->initStyleOption(&filled);
        return filled;
    }
};

using Button = Opened<QPushButton, QStyleOptionButton>;
using Check = Opened<QCheckBox, QStyleOptionButton>;
using Radio = Opened<QRadioButton, QStyleOptionButton>;
using Progress = Opened<QProgressBar, QStyleOptionProgressBar>;
using SliderWidget = Opened<QSlider, QStyleOptionSlider>;
using Combo = Opened<QComboBox, QStyleOptionComboBox>;
using TextLabel = Opened<QLabel, QStyleOptionFrame>;

template <typename Widget, QStyle::ControlElement Element>
void paintElement(const Widget *widget, QPainter *painter)
{
    const auto option = widget->option();
    widget->style()->drawControl(Element, &option, painter, widget);
}

void paintSlider(const SliderWidget *slider, QPainter *painter)
{
    const QStyleOptionSlider option = slider->option();
    slider->style()->drawComplexControl(QStyle::CC_Slider, &option, painter, slider);
}

void paintCombo(const Combo *combo, QPainter *painter)
{
    const QStyleOptionComboBox option = combo->option();
    combo->style()->drawComplexControl(QStyle::CC_ComboBox, &option, painter, combo);
    combo->style()->drawControl(QStyle::CE_ComboBoxLabel, &option, painter, combo);
}

void paintLabel(const TextLabel *label, QPainter *painter)
{
    label->style()->drawItemText(painter, label->contentsRect(), int(label->alignment()),
                                 label->palette(), label->isEnabled(), label->text(),
                                 label->foregroundRole());
}

void paintFramedLabel(const TextLabel *label, QPainter *painter)
{
    paintElement<TextLabel, QStyle::CE_ShapedFrame>(label, painter);
    paintLabel(label, painter);
}

TextLabel *makeLabel()
{
    auto *label = new TextLabel;
    label->setText(caption);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

void dress(KELPushButton *control, const QRectF &rect, const QString &text)
{
    control->setboundRect(rect);
    control->setText(text);
    control->style()->xRadius = control->style()->yRadius = HandDrawing::cornerPx;
}

void measureBase(const QSize &size)
{
    const Scenario scenario("base", size);
    KELRoundRectControl control;
    control.setboundRect(scenario.rect());
    control.setText(caption);
    const HandDrawing::Base drawing(scenario.rect(), caption);
    scenario.run(drawn(drawing), painted(control));

    TextLabel *const framed = makeLabel();
    framed->setFrameStyle(QFrame::StyledPanel);
    scenario.runWidget(framed, paintFramedLabel);
    scenario.runQuick("Frame { Label { anchors.centerIn: parent; text: 'Settings' } }");
}

void measurePushButton(const QSize &size)
{
    const Scenario scenario("push button", size);
    KELPushButton control;
    dress(&control, scenario.rect(), caption);
    const HandDrawing::PushButton drawing(scenario.rect(), caption);
    scenario.run(drawn(drawing), painted(control));

    auto *const button = new Button;
    button->setText(caption);
    scenario.runWidget(button, paintElement<Button, QStyle::CE_PushButton>);
    scenario.runQuick("Button { text: 'Settings' }");
}

void measureCutPushButton(const QSize &size)
{
    const Scenario scenario("push button with a cut caption", size);
    KELPushButton control;
    dress(&control, scenario.rect(), longCaption);
    const HandDrawing::PushButton drawing(scenario.rect(), longCaption);
    scenario.run(drawn(drawing), painted(control));
}

void measurePixmapButton(const QSize &size)
{
    const Scenario scenario("push button with picture", size);
    const QPixmap picture = makePicture();
    KELPushButton control;
    dress(&control, scenario.rect(), caption);
    control.style()->pixmap = picture;
    const HandDrawing::PixmapButton drawing(scenario.rect(), caption, picture);
    scenario.run(drawn(drawing), painted(control));

    auto *const button = new Button;
    button->setText(caption);
    button->setIcon(picture);
    scenario.runWidget(button, paintElement<Button, QStyle::CE_PushButton>);
}

void measureGlyphButton(const QSize &size)
{
    const Scenario scenario("push button with glyph", size);
    KELPushButton control;
    dress(&control, scenario.rect(), caption);
    control.style()->icon.setIcon(glyph);
    QFont font(KELIconFont::fontFamily());
    font.setPixelSize(control.style()->iconSize);
    const HandDrawing::GlyphButton drawing(scenario.rect(), caption, glyph, font);
    scenario.run(drawn(drawing), painted(control));
}

void measureLabel(const QSize &size)
{
    const Scenario scenario("label", size);
    KELLabel control;
    control.setboundRect(scenario.rect());
    control.setText(caption);
    const HandDrawing::Label drawing(scenario.rect(), caption);
    scenario.run(drawn(drawing), painted(control));

    scenario.runWidget(makeLabel(), paintLabel);
    scenario.runQuick("Label { text: 'Settings' }");
}

void measureCheckBox(const QSize &size)
{
    const Scenario scenario("check box", size);
    KELCheckBox control;
    control.setboundRect(scenario.rect());
    control.setCheck(true);
    const HandDrawing::CheckBox drawing(scenario.rect());
    scenario.run(drawn(drawing), painted(control));

    auto *const box = new Check;
    box->setChecked(true);
    scenario.runWidget(box, paintElement<Check, QStyle::CE_CheckBox>);
    scenario.runQuick("Switch { checked: true }");
}

void measureRadioBox(const QSize &size)
{
    const Scenario scenario("radio box", size);
    KELRadioBox control;
    control.setboundRect(scenario.rect());
    control.setCheck(true);
    const HandDrawing::RadioBox drawing(scenario.rect());
    scenario.run(drawn(drawing), painted(control));

    auto *const box = new Radio;
    box->setChecked(true);
    scenario.runWidget(box, paintElement<Radio, QStyle::CE_RadioButton>);
    scenario.runQuick("RadioButton { checked: true }");
}

void measureProgressBar(const QSize &size)
{
    const Scenario scenario("progress bar", size);
    KELProcessBar control;
    control.setboundRect(scenario.rect());
    control.setValue(40);
    const HandDrawing::ProgressBar drawing(scenario.rect());
    scenario.run(drawn(drawing), painted(control));

    auto *const bar = new Progress;
    bar->setValue(40);
    scenario.runWidget(bar, paintElement<Progress, QStyle::CE_ProgressBar>);
    scenario.runQuick("ProgressBar { value: 0.4 }");
}

// A view that does something while it is painted, once.
class View : public QGraphicsView
{
public:
    View(QGraphicsScene *scene, std::function<void()> run) :
        QGraphicsView(scene), m_run(std::move(run))
    { }

protected:
    void drawForeground(QPainter * /*painter*/, const QRectF & /*rect*/) override
    {
        if (const auto run = std::exchange(m_run, nullptr))
            run();
    }

private:
    std::function<void()> m_run;
};

void measureProgressBarInScene(const QSize &size)
{
    const Scenario scenario("progress bar painted by a scene", size);
    QGraphicsScene scene;
    scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    auto *const control = new KELProcessBar;
    control->setboundRect(scenario.rect());
    control->setValue(40);
    scene.addItem(control);
    const HandDrawing::ProgressBar drawing(scenario.rect());
    View(&scene, [&] { scenario.run(drawn(drawing), painted(*control)); }).grab();
}

void measureSlider(const QSize &size)
{
    const Scenario scenario("slider", size);
    KELSlideControl control;
    control.setboundRect(scenario.rect());
    control.setValue(40);
    const HandDrawing::Slider drawing(control.boundingRect());
    scenario.run(drawn(drawing), painted(control));

    auto *const slider = new SliderWidget;
    slider->setOrientation(Qt::Horizontal);
    slider->setRange(0, 100);
    slider->setValue(40);
    scenario.runWidget(slider, paintSlider);
    scenario.runQuick("Slider { value: 0.4 }");
}

// The visible items below an item, as a scene paints them, each with its floor.
void addParts(std::vector<Part> *parts, const QGraphicsItem *item, const std::vector<Paint> &floors)
{
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children) {
        if (!child->isVisible())
            continue;
        const Paint floor = floors.at(parts->size());
        parts->push_back({child->boundingRect().toRect(),
                          [floor](QPainter *painter) {
                              painter->setRenderHints(HandDrawing::allHints);
                              floor(painter);
                          },
                          [child](QPainter *painter) { child->paint(painter, nullptr, nullptr); }});
        addParts(parts, child, floors);
    }
}

void measureComboBox(const QSize &size)
{
    const Scenario scenario("closed combo box", size);
    KELComboBox control;
    control.setboundRect(scenario.rect());
    control.addItem(0, caption);
    control.setSelectIndex(0);
    const HandDrawing::ComboBox drawing(scenario.rect(), caption);
    const std::vector<Paint> floors = {drawn(drawing.button), drawn(drawing.caption),
                                       drawn(drawing.arrow)};
    std::vector<Part> parts;
    addParts(&parts, &control, floors);
    scenario.run(parts);

    auto *const combo = new Combo;
    combo->addItem(caption);
    scenario.runWidget(combo, paintCombo);
    scenario.runQuick("ComboBox { model: ['Settings'] }");
}

// Colours that no other paint has.
QBrush colour(int i)
{
    return QColor(64 + i % 128, 64 + i / 128 % 128, 96);
}

// The same six digits in another order: no glyph is new.
QString numberCaption(int i)
{
    QString rest = QStringLiteral("1234567");
    QString digits;
    for (; !rest.isEmpty(); rest.remove(digits.back())) {
        digits.append(rest.at(i % rest.size()));
        i /= rest.size();
    }
    return digits;
}

// Where little or nothing can be given back.
template <typename Control>
void measureSights(const char *what, const QSize &size, bool hasCaption)
{
    const QRectF rect(QPointF(), size);
    const QByteArray name = "paint, " + QByteArray(what) + ", " + QByteArray::number(size.width())
        + " x " + QByteArray::number(size.height());
    const auto named = [&name](const char *sight) { return name + ", " + sight; };
    Control control;
    control.setboundRect(rect);
    if (hasCaption)
        control.setText(caption);
    control.style()->xRadius = control.style()->yRadius = HandDrawing::cornerPx;
    const QBrush background = control.style()->backgroundBrush;
    int last = 0; // what was seen in one row is not new in the next
    const auto recolour = [&] { control.style()->backgroundBrush = colour(++last); };
    const auto moveOn = [&] { control.setboundRect(rect.translated(size.width() * ++last, 0)); };
    Scenario::runChanged(named("first paint"), &control, recolour, 1);
    Scenario::runChanged(named("second paint"), &control, recolour, 2);
    Scenario::runChanged(named("third paint"), &control, recolour, 3);
    control.style()->backgroundBrush = background;
    if (hasCaption) {
        Scenario::runChanged(
            named("first paint of a caption"), &control,
            [&] { control.setText(numberCaption(++last)); }, 1);
        control.setText(caption);
    }
    // Of a look that is kept.
    for (int paint = 0; paint < 3; ++paint)
        Canvas(control.boundingRect().toRect()).paint(painted(control));
    Scenario::runChanged(named("first paint at another place"), &control, moveOn, 1);
    Scenario::runChanged(named("second paint at another place"), &control, moveOn, 2);
    control.setboundRect(rect);
    Scenario::runOverWhite(named("not onto blank"), &control);
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    Benchmark::readArguments(argc, argv);
    KELIconFont::g_fontFamily = QApplication::font().family();
    for (const QSize &size : {QSize(100, 30), QSize(200, 60)}) {
        measureBase(size);
        measurePushButton(size);
        measureCutPushButton(size);
        measurePixmapButton(size);
        measureGlyphButton(size);
        measureLabel(size);
        measureCheckBox(size);
        measureRadioBox(size);
        measureProgressBar(size);
        measureProgressBarInScene(size);
        measureSlider(size);
        measureComboBox(size);
        measureSights<KELPushButton>("push button", size, true);
        measureSights<KELLabel>("label", size, true);
        measureSights<KELCheckBox>("check box", size, false);
        measureSights<KELRadioBox>("radio box", size, false);
        measureSights<KELProcessBar>("progress bar", size, false);
        measureSights<KELSlideControl>("slider", size, false);
    }
    return 0;
}
