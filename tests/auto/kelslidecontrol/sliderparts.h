// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDERPARTS_H
#define SLIDERPARTS_H

#include <kelslidecontrol.h>

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <limits>

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();

// One drawing command, as it reached the paint device.
struct Part
{
    bool isEllipse;
    QRectF ellipse;
    QPainterPath path;
    QPen pen;
    QBrush brush;
    QPainter::RenderHints hints;
};

// Tells the exact numbers of a drawing, which pixels do not.
class RecordingEngine : public QPaintEngine
{
public:
    RecordingEngine() : QPaintEngine(AllFeatures) { }
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override { }
    void drawPixmap(const QRectF & /*target*/, const QPixmap & /*pixmap*/,
                    const QRectF & /*source*/) override
    { }
    using QPaintEngine::drawEllipse;
    void drawEllipse(const QRectF &rect) override { note(true, rect, QPainterPath()); }
    void drawPath(const QPainterPath &path) override { note(false, QRectF(), path); }
    Type type() const override { return User; }

    QList<Part> parts;

private:
    void note(bool isEllipse, const QRectF &rect, const QPainterPath &path)
    {
        parts.append({isEllipse, rect, path, painter()->pen(), painter()->brush(),
                      painter()->renderHints()});
    }
};

class RecordingDevice : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &m_engine; }
    QList<Part> parts() const { return m_engine.parts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatio)
            return 1;
        return metric == PdmDevicePixelRatioScaled ? int(devicePixelRatioFScale()) : 1000;
    }

private:
    mutable RecordingEngine m_engine;
};

inline QList<Part> partsOf(KELSlideControl *slider, const QPen &painterPen = QPen(Qt::NoPen))
{
    RecordingDevice device;
    QPainter painter(&device);
    painter.setPen(painterPen);
    slider->paint(&painter, nullptr);
    painter.end();
    return device.parts();
}

// The knob as it is painted; null when it is not.
inline QRectF knobOf(KELSlideControl *slider)
{
    const QList<Part> parts = partsOf(slider);
    return !parts.isEmpty() && parts.last().isEllipse ? parts.last().ellipse : QRectF();
}

// The way of the knob: fraction and product are single precision.
inline qreal wayOf(float fraction, qreal width)
{
    return qreal(float(qreal(fraction) * (width - 30)));
}

inline qreal topOf(const QRectF &rect)
{
    return rect.y() + rect.height() * 0.5 - 15;
}

inline void place(KELSlideControl *slider, const QRectF &rect)
{
    slider->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
}

struct Setting
{
    float minimum;
    float maximum;
    float value;
};

inline void apply(KELSlideControl *slider, const Setting &setting)
{
    slider->setStep(0);
    slider->setMinimun(setting.minimum);
    slider->setMaximun(setting.maximum);
    slider->setValue(setting.value);
}

#endif
