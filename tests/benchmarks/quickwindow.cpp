// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "quickwindow.h"

#ifdef KEL_HAVE_QUICK
#  include <QtQml/QQmlComponent>
#  include <QtQml/QQmlEngine>
#  include <QtQuick/QQuickItem>
#  include <QtQuick/QQuickRenderControl>
#  include <QtQuick/QQuickWindow>

class QuickWindow::Parts
{
public:
    QQuickRenderControl control;
    QQuickWindow window{&control};
    QQmlEngine engine;
    std::unique_ptr<QObject> root;
};

void QuickWindow::chooseSoftware()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

QuickWindow::QuickWindow(const QSize &size, const QByteArray &item) :
    m_parts(std::make_unique<Parts>())
{
    QQmlComponent component(&m_parts->engine);
    component.setData("import QtQuick 2.15\nimport QtQuick.Controls 2.15\n" + item, QUrl());
    m_parts->root.reset(component.create());
    auto *const rootItem = qobject_cast<QQuickItem *>(m_parts->root.get());
    if (!rootItem) {
        m_reason = component.errorString().simplified().toUtf8();
        return;
    }
    m_parts->window.resize(size);
    rootItem->setParentItem(m_parts->window.contentItem());
    rootItem->setSize(size);
    m_parts->control.initialize(nullptr);
    m_parts->control.polishItems();
    m_parts->control.sync();
}

QuickWindow::~QuickWindow() = default;

bool QuickWindow::isReady() const
{
    return m_reason.isEmpty();
}

void QuickWindow::paint()
{
    m_picture = m_parts->control.grab();
}

void QuickWindow::paintChanged()
{
    m_parts->control.polishItems();
    m_parts->control.sync();
    paint();
}

void QuickWindow::set(const char *property, const QVariant &value)
{
    m_parts->root->setProperty(property, value);
}

void QuickWindow::call(const char *function)
{
    QMetaObject::invokeMethod(m_parts->root.get(), function);
}
#else
class QuickWindow::Parts
{
};

void QuickWindow::chooseSoftware() { }

QuickWindow::QuickWindow(const QSize & /*size*/, const QByteArray & /*item*/) :
    m_reason("Qt Quick is not installed")
{ }

QuickWindow::~QuickWindow() = default;

bool QuickWindow::isReady() const
{
    return false;
}

void QuickWindow::paint() { }

void QuickWindow::paintChanged() { }

void QuickWindow::set(const char * /*property*/, const QVariant & /*value*/) { }

void QuickWindow::call(const char * /*function*/) { }
#endif
