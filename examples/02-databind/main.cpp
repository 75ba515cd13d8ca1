// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELCheckBox>
#include <KELContentView>
#include <KELDataBind>
#include <KELLabel>
#include <KELSlideControl>

#include <QApplication>

class Heater : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(double fahrenheit READ fahrenheit WRITE setFahrenheit NOTIFY fahrenheitChanged)

public:
    bool isEnabled() const { return m_enabled; }
    double fahrenheit() const { return m_fahrenheit; }
    void setEnabled(bool enabled)
    {
        if (enabled == m_enabled) // without this line a two-way binding would never come to rest
            return;
        m_enabled = enabled;
        Q_EMIT enabledChanged();
    }
    void setFahrenheit(double fahrenheit)
    {
        m_fahrenheit = fahrenheit;
        Q_EMIT fahrenheitChanged();
        if (fahrenheit > 200) // switches itself off, and the check box follows
            setEnabled(false);
    }

Q_SIGNALS:
    void enabledChanged();
    void fahrenheitChanged();

private:
    bool m_enabled = true;
    double m_fahrenheit = 0;
};

class CelsiusToFahrenheit final : public IKELValueConverter
{
public:
    QVariant Convert(QObject *, const QVariant &c) override { return c.toDouble() * 1.8 + 32; }
    QVariant ConvertBack(QObject *, const QVariant &f) override
    {
        return (f.toDouble() - 32) / 1.8;
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Heater heater;
    CelsiusToFahrenheit converter; // borrowed: it must live as long as the binding
    KELContentView view;

    auto *panel = new KELRoundRectControl;
    panel->setboundRect(0, 0, 360, 160);
    panel->style()->backgroundBrush = QColor(20, 32, 46);
    auto *checkBox = new KELCheckBox(panel);
    checkBox->setboundRect(16, 16, 82, 48);
    auto *label = new KELLabel(panel);
    label->setboundRect(114, 16, 230, 48);
    auto *slider = new KELSlideControl(panel);
    slider->setMaximun(100);
    slider->setMinimun(-40);
    slider->setboundRect(16, 88, 328, 48);
    QObject::connect(&heater, &Heater::fahrenheitChanged, label, [label, &heater] {
        label->setText(QStringLiteral("%1 °F").arg(heater.fahrenheit(), 0, 'f', 1));
    });

    KELDataBind::bind(checkBox, "check", &heater, "enabled", KELDataBind::TwoWay);
    // One way: a slider emits for unchanged values, too, so that its echo would never end.
    KELDataBind::bind(slider, "value", &heater, "fahrenheit", KELDataBind::OneWay, &converter);
    // Only now, as bind() begins by copying to the slider, and without the converter: 0 °F to 0 °C.
    slider->setValue(20);

    view.setContent(panel);
    view.show();
    return app.exec();
}

#include "main.moc"
