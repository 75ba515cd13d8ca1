// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelroundrectcontrol.h"
#include "keltest.h"

#include <cstring>

// The compiler's class dump names functions without their parameters; this tells overloads apart.
class tst_KELVirtualTable : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void setboundRectWithARectangleComesBeforeFourNumbers();
};

namespace {

// The place in the virtual table, from a pointer to a virtual member function.
template <typename Function>
std::ptrdiff_t tableOffset(Function function)
{
    std::ptrdiff_t offset = 0;
    static_assert(sizeof(function) >= sizeof(offset), "not the generic C++ ABI");
    std::memcpy(&offset, &function, sizeof(offset));
    return offset;
}

} // namespace

void tst_KELVirtualTable::setboundRectWithARectangleComesBeforeFourNumbers()
{
    using Control = KELRoundRectControl;
    const auto withRect = tableOffset(
        static_cast<void (Control::*)(const QRectF &)>(&Control::setboundRect));
    const auto withNumbers = tableOffset(
        static_cast<void (Control::*)(qreal, qreal, qreal, qreal)>(&Control::setboundRect));
    QCOMPARE(withNumbers - withRect, std::ptrdiff_t(sizeof(void *)));
}

KEL_TEST_MAIN(tst_KELVirtualTable)
#include "tst_kelvirtualtable.moc"
