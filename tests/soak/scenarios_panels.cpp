// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <kelcontentview.h>
#include <kellabel.h>
#include <kelnavigationtable.h>
#include <kelpushbutton.h>
#include <kelsidemenu.h>

namespace {

KELPushButton *newButton(const QRectF &rect)
{
    auto *const button = new KELPushButton;
    button->setboundRect(rect);
    button->setText(QStringLiteral("Button"));
    return button;
}

// A click on the middle of the item.
void click(QGraphicsView *view, const QGraphicsItem *item)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->mapFromScene(item->sceneBoundingRect().center()));
}

class SideMenu final : public Scenario
{
public:
    void round() override
    {
        auto menu = std::make_unique<KELSideMenu>();
        menu->setOrientation(KELSideMenu::Vertical);
        menu->setSpace(2);
        for (int i = 0; i < 3; ++i) {
            m_last = newButton(QRectF(0, 0, 100, 40));
            QObject::connect(m_last, &KELRoundRectControl::mouseClicked, menu.get(),
                             &QWidget::close);
            menu->addItem(m_last);
        }
        menu->show();
        QCoreApplication::processEvents();
        click(menu.get(), m_last);
        expect(menu->isHidden(), "a button of the menu closes it");
        menu.reset();
        settleRound();
    }

private:
    KELPushButton *m_last = nullptr;
};

class ContentView final : public Scenario
{
public:
    void round() override
    {
        auto view = std::make_unique<KELContentView>();
        view->show();
        for (int i = 0; i < 3; ++i) {
            auto *const page = new KELLabel;
            page->setboundRect(0, 0, 150, 100);
            page->setText(QStringLiteral("Page"));
            auto *const button = newButton(QRectF(10, 10, 100, 40));
            button->setParentItem(page);
            view->setContent(page);
            QCoreApplication::processEvents();
        }
        expect(view->scene()->items().size() == 2, "the last page alone is shown");
        view->close();
        view.reset();
        settleRound();
    }
};

class NavigationTable final : public Scenario
{
public:
    void round() override
    {
        auto *const table = m_stage.add<KELNavigationTable>(QRectF(0, 0, 200, 200));
        for (int i = 0; i < 3; ++i) {
            auto *const page = new KELNavigationTableItem;
            page->setText(QStringLiteral("Page"));
            newButton(QRectF(10, 10, 100, 40))->setParentItem(page);
            table->addItem(page);
        }
        QCoreApplication::processEvents();
        m_stage.tap(QPoint(100, 160));
        expect(table->selectIndex() == 1, "a tap on a tab shows its page");
        table->setSelectIndex(2);
        delete table->selectItem();
        QCoreApplication::processEvents();
        delete table;
        settleRound();
    }

private:
    SoakStage m_stage;
};

} // namespace

Scenarios panelScenarios()
{
    return {scenario<SideMenu>("sidemenu", "side menu: create, open, close, delete"),
            scenario<ContentView>("contentview", "content view: three pages, one after the other"),
            scenario<NavigationTable>("navigationtable",
                                      "navigation table: create, page, delete a page, delete")};
}
