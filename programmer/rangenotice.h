// Tells the user at once when a typed value lies outside a field's range.
#pragma once

#include "tarn2_specific_export.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QAbstractSpinBox;

namespace tarn2::specific::orvo5000::programmer {

// A spin box refuses a keystroke that would take its text outside its range: typing 40 into a box
// that ends at 32 leaves 4, and nothing says why. RangeNotice watches spin boxes for such a
// keystroke and answers it: the box goes back to the value it held when editing began (never a
// number cut short), the limit shows in a tool tip at the box, and `refused` carries the same
// sentence for a status line. A box's tool tip also names its range, as it is when shown. What a
// box accepts, and how it clamps, stay the box's own.
class TARN2_SPECIFIC_EXPORT RangeNotice final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(RangeNotice)

public:
    explicit RangeNotice(QObject *parent = nullptr);
    ~RangeNotice() override;

    // `unit` follows the numbers in the sentences; the box's suffix when empty.
    void watch(QAbstractSpinBox *box, const QString &unit = QString());

    // "40 V is above the largest value, 32.000 V" for `text` typed into `box`; empty when the
    // text is no number outside the box's range.
    QString refusal(const QAbstractSpinBox *box, const QString &text) const;

signals:
    void refused(const QString &message);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString unitOf(const QAbstractSpinBox *box) const;
    QString rangeText(const QAbstractSpinBox *box) const;

    QHash<const QObject *, QString> m_units;
    // What each box held when its editing began.
    QHash<const QObject *, double> m_startValues;
};

} // namespace tarn2::specific::orvo5000::programmer
