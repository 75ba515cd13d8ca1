// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "declarations.h"
#include "hand.h"
#include "keltest.h"

#include <memory>

static_assert(sizeof(KELIconFont) == 24, "KELIconFont");
static_assert(sizeof(KELRoundRectControlStyle) == 216, "KELRoundRectControlStyle");
static_assert(sizeof(KELPushButtonStyle) == 248, "KELPushButtonStyle");
static_assert(sizeof(KELCheckBoxStyle) == 224, "KELCheckBoxStyle");
static_assert(sizeof(KELNavigationTableStyle) == 256, "KELNavigationTableStyle");
static_assert(sizeof(KELNavigationTableItemStyle) == 232, "KELNavigationTableItemStyle");
static_assert(sizeof(KELRoundRectControl) == 48, "KELRoundRectControl");
static_assert(sizeof(KELPushButton) == 144, "KELPushButton");
static_assert(sizeof(KELCheckBox) == 56, "KELCheckBox");
static_assert(sizeof(KELComboBoxItem) == 152, "KELComboBoxItem");
static_assert(sizeof(KELComboBox) == 56, "KELComboBox");
static_assert(sizeof(KELNavigationTableItem) == 56, "KELNavigationTableItem");
static_assert(sizeof(KELNavigationTable) == 56, "KELNavigationTable");
static_assert(sizeof(KELContentView) == 56, "KELContentView");
static_assert(sizeof(KELSideMenu) == 56, "KELSideMenu");
static_assert(sizeof(KELDialogBase) == 56, "KELDialogBase");
static_assert(sizeof(KELNonModalhelper) == 24, "KELNonModalhelper");
static_assert(sizeof(KELNonModalDialog) == 64, "KELNonModalDialog");
static_assert(sizeof(KELDefaultValueConverter) == 16, "KELDefaultValueConverter");
static_assert(sizeof(KELDataBind) == 24, "KELDataBind");

namespace {

// A glyph of the icon font is drawn with the font of the application where no icon font is
// installed.
constexpr ushort letterCode = 'A';

bool isBlank(const QImage &image)
{
    QImage blank(image.size(), image.format());
    blank.fill(Qt::white);
    return image == blank;
}

// A control of the program's own: the library calls it through the table, and deletes its record.
class Lamp : public KELPushButton
{
public:
    Lamp() { m_style = Lamp::initStyle(); }
    ~Lamp() override { ++destroyed; }

    KELPushButtonStyle *initStyle() override
    {
        auto *const record = new KELPushButtonStyle();
        style()->copy(record);
        delete static_cast<KELPushButtonStyle *>(m_style);
        record->text = QStringLiteral("lamp");
        return record;
    }
    void onCheckedEvent(bool check) override { changes.append(check && isCheck()); }
    void setboundRect(const QRectF &rect) override
    {
        lastRect = rect;
        KELPushButton::setboundRect(rect);
    }
    using KELPushButton::setboundRect;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        KELPushButtonStyle option;
        initStyleOption(&option, nullptr);
        painter->fillRect(option.boundRect, option.borderBrush);
    }

    static int destroyed;
    QList<bool> changes;
    QRectF lastRect;
};

int Lamp::destroyed = 0;

} // namespace

// A program whose declarations of the queries are not const is linked, and is given the right
// functions.
class tst_NonConst : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void control();
    void controlOption();
    void controlRecord();
    void iconFont();
    void iconFontDraws();
    void pushButtonOption();
    void checkBoxOption();
    void comboBox();
    void comboBoxEntry();
    void navigationTable();
    void navigationTableOption();
    void contentView();
    void sideMenu();
    void dialogBase();
    void nonModalHelper();
    void nonModalDialog();
    void dataBind();
    void valueConverter();
    void derivedControl();
    void signalsAndCasts();
};

void tst_NonConst::control()
{
    const std::unique_ptr<KELRoundRectControl> control(new KELRoundRectControl);
    control->setText(QStringLiteral("caption"));
    QCOMPARE(control->text(), QStringLiteral("caption"));
    QCOMPARE(control->style()->text, QStringLiteral("caption"));
    QVERIFY(!control->isCheck());
    control->setCheck(true);
    QVERIFY(control->isCheck());
    QVERIFY(!control->isMouseDown());
    control->style()->isMouseDown = true;
    QVERIFY(control->isMouseDown());
}

void tst_NonConst::controlOption()
{
    KELRoundRectControl control;
    control.setboundRect(0, 0, 70, 20);
    control.style()->xRadius = 4;
    KELRoundRectControlStyle option;
    control.initStyleOption(&option, nullptr);
    QCOMPARE(option.boundRect, QRectF(0, 0, 70, 20));
    QCOMPARE(option.xRadius, 4.0);
}

void tst_NonConst::controlRecord()
{
    KELRoundRectControl control;
    KELRoundRectControlStyle *const record = control.style();
    record->text = QStringLiteral("copied");
    record->isCheck = true;
    KELRoundRectControlStyle copy;
    record->copy(&copy);
    QCOMPARE(copy.text, QStringLiteral("copied"));
    QCOMPARE(copy.iconSize, 30);
    QVERIFY(!copy.isCheck);
    QCOMPARE(record->getTrimmingText(QStringLiteral("a\n\nb"), 500, QFont()),
             QStringLiteral("a\nb"));
}

void tst_NonConst::iconFont()
{
    KELIconFont none;
    QVERIFY(none.isNull());
    KELIconFont glyph(letterCode);
    QVERIFY(!glyph.isNull());
    QCOMPARE(glyph.getIcon(), QChar(letterCode));
    QCOMPARE(glyph.operator QChar(), QChar(letterCode));
    QCOMPARE(glyph.operator QString(), QStringLiteral("A"));
}

void tst_NonConst::iconFontDraws()
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    KELIconFont glyph(letterCode);
    glyph.setPixelSize(20);
    glyph.drawIcon(&painter, QRectF(0, 0, 40, 40), Qt::AlignCenter);
    painter.end();
    QVERIFY(!isBlank(image));
}

void tst_NonConst::pushButtonOption()
{
    KELPushButton button;
    button.style()->isMouseDown = true;
    KELPushButtonStyle option;
    button.initStyleOption(&option, nullptr);
    QCOMPARE(option.backgroundBrush, QBrush(QColor(50, 70, 100, 200)));
    QCOMPARE(option.iconMargins, QMarginsF(5, 1, 5, 1));
}

void tst_NonConst::checkBoxOption()
{
    KELCheckBox box;
    KELCheckBoxStyle option;
    box.initStyleOption(&option, nullptr);
    QCOMPARE(option.indicatorBrush, QBrush(QColor(0, 123, 185, 255)));
}

void tst_NonConst::comboBox()
{
    const std::unique_ptr<KELComboBox> box(new KELComboBox);
    QCOMPARE(box->selectIndex(), -1);
    QVERIFY(!box->selectedItem());
    box->addItem(1, QStringLiteral("one"));
    box->addItem(2, QStringLiteral("two"));
    QCOMPARE(box->items().size(), 2);
    box->setSelectIndex(1);
    QCOMPARE(box->selectIndex(), 1);
    QCOMPARE(box->selectedItem(), box->items().at(1));
}

void tst_NonConst::comboBoxEntry()
{
    const std::unique_ptr<KELComboBoxItem> entry(new KELComboBoxItem);
    entry->setDisplay(QStringLiteral("shown"));
    entry->setValue(17);
    QCOMPARE(entry->display(), QStringLiteral("shown"));
    QCOMPARE(entry->value(), QVariant(17));
}

void tst_NonConst::navigationTable()
{
    const std::unique_ptr<KELNavigationTable> table(new KELNavigationTable);
    QCOMPARE(table->selectIndex(), -1);
    QVERIFY(!table->selectItem());
    table->addItem(new KELNavigationTableItem);
    auto *const second = new KELNavigationTableItem;
    table->addItem(second);
    table->setSelectIndex(1);
    QCOMPARE(table->selectIndex(), 1);
    QCOMPARE(table->selectItem(), second);
}

void tst_NonConst::navigationTableOption()
{
    KELNavigationTable table;
    static_cast<KELNavigationTableStyle *>(table.style())->showTitle = true;
    KELNavigationTableStyle option;
    table.initStyleOption(&option, nullptr);
    QVERIFY(option.showTitle);
    QCOMPARE(option.titleHeight, 35.0F);
    QCOMPARE(option.tabHeight, 0.0F);
}

void tst_NonConst::contentView()
{
    const std::unique_ptr<KELContentView> view(new KELContentView);
    QVERIFY(!view->content());
    auto *const control = new KELRoundRectControl;
    view->setContent(control);
    QCOMPARE(view->content(), control);
}

void tst_NonConst::sideMenu()
{
    const std::unique_ptr<KELSideMenu> menu(new KELSideMenu);
    QCOMPARE(menu->orientation(), KELSideMenu::Horizontal);
    menu->setOrientation(KELSideMenu::Vertical);
    QCOMPARE(menu->orientation(), KELSideMenu::Vertical);
    QCOMPARE(menu->borderWidth(), 2.0F);
    menu->setBorderWidth(3);
    QCOMPARE(menu->borderWidth(), 3.0F);
    QCOMPARE(menu->space(), 0.5F);
    menu->setSpace(4);
    QCOMPARE(menu->space(), 4.0F);
}

void tst_NonConst::dialogBase()
{
    const std::unique_ptr<KELDialogBase> dialog(new KELDialogBase);
    QVERIFY(dialog->view());
    QCOMPARE(dialog->view()->parentWidget(), dialog.get());
    takeWarnings(); // of the picture, which this program has not
}

void tst_NonConst::nonModalHelper()
{
    QWidget widget;
    const std::unique_ptr<KELNonModalhelper> helper(new KELNonModalhelper(&widget));
    QCOMPARE(helper->triggerSource(), KELNonModalhelper::TriggerParent);
    helper->setTriggerSource(KELNonModalhelper::TriggerNone);
    QCOMPARE(helper->triggerSource(), KELNonModalhelper::TriggerNone);
    QVERIFY(!helper->isTimeEnable());
    helper->enableTime(1000);
    QVERIFY(helper->isTimeEnable());
}

void tst_NonConst::nonModalDialog()
{
    const std::unique_ptr<KELNonModalDialog> dialog(new KELNonModalDialog);
    QCOMPARE(dialog->triggerSource(), KELNonModalhelper::TriggerScreen);
    dialog->setTriggerSource(KELNonModalhelper::TriggerNone);
    QCOMPARE(dialog->triggerSource(), KELNonModalhelper::TriggerNone);
}

void tst_NonConst::dataBind()
{
    KELCheckBox source;
    KELCheckBox destination;
    const std::unique_ptr<KELDataBind> bind(new KELDataBind);
    QVERIFY(bind->hasError());
    bind->setBind(&source, "check", &destination, "check", KELDataBind::TwoWay);
    QVERIFY(!bind->hasError());
    QCOMPARE(bind->bindMode(), KELDataBind::TwoWay);
    source.setCheck(true);
    QVERIFY(destination.isCheck());
}

void tst_NonConst::valueConverter()
{
    KELDefaultValueConverter converter;
    QVERIFY(converter == IKELValueConverter::DefaultConverterType);
    converter.type = IKELValueConverter::CustomConverterType;
    QVERIFY(!(converter == IKELValueConverter::DefaultConverterType));
}

void tst_NonConst::derivedControl()
{
    Lamp::destroyed = 0;
    {
        QGraphicsScene scene;
        auto *const lamp = new Lamp;
        scene.addItem(lamp);
        KELRoundRectControl *const control = lamp;
        control->setboundRect(QRectF(0, 0, 30, 20));
        QCOMPARE(lamp->lastRect, QRectF(0, 0, 30, 20));
        QCOMPARE(control->text(), QStringLiteral("lamp"));
        control->setCheck(true);
        control->setCheck(false);
        QCOMPARE(lamp->changes, QList<bool>({true, false}));

        QImage image(30, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        scene.render(&painter, image.rect(), QRectF(0, 0, 30, 20));
        painter.end();
        QCOMPARE(image.pixelColor(15, 10), QColor(Qt::black));
    }
    QCOMPARE(Lamp::destroyed, 1);
}

void tst_NonConst::signalsAndCasts()
{
    KelTestView view;
    auto *const button = new KELPushButton;
    button->setboundRect(0, 0, 100, 50);
    view.ownScene.addItem(button);
    QVERIFY(view.showAndWait());
    int clicks = 0;
    connect(button, &KELRoundRectControl::mouseClicked, this, [&clicks] { ++clicks; });
    bool wasDown = false;
    connect(button, &KELRoundRectControl::mousePress, this,
            [&wasDown, button] { wasDown = button->isMouseDown(); });
    Hand(&view).tap(view.centreOf(button));
    QCOMPARE(clicks, 1);
    QVERIFY(wasDown);
    QObject *const object = button;
    QCOMPARE(qobject_cast<KELPushButton *>(object), button);
    QVERIFY(!qobject_cast<KELCheckBox *>(object));
}

KEL_TEST_MAIN(tst_NonConst)
#include "tst_nonconst.moc"
