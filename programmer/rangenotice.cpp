// Watching spin boxes for values typed beyond their range.
#include "rangenotice.h"

#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolTip>

#include <optional>

namespace tarn2::specific::orvo5000::programmer {

namespace {

struct Bounds
{
    double minimum;
    double maximum;
    QString lowest;
    QString highest;
    QString prefix;
    QString suffix;
};

double valueOf(const QAbstractSpinBox *box)
{
    if (const auto *real = qobject_cast<const QDoubleSpinBox *>(box))
        return real->value();
    return static_cast<const QSpinBox *>(box)->value();
}

void setValueOf(QAbstractSpinBox *box, double value)
{
    if (auto *real = qobject_cast<QDoubleSpinBox *>(box))
        real->setValue(value);
    else if (auto *whole = qobject_cast<QSpinBox *>(box))
        whole->setValue(qRound(value));
}

std::optional<Bounds> boundsOf(const QAbstractSpinBox *box)
{
    if (const auto *real = qobject_cast<const QDoubleSpinBox *>(box))
        return Bounds{real->minimum(),
                      real->maximum(),
                      real->textFromValue(real->minimum()),
                      real->textFromValue(real->maximum()),
                      real->prefix(),
                      real->suffix()};
    if (const auto *whole = qobject_cast<const QSpinBox *>(box))
        return Bounds{double(whole->minimum()),
                      double(whole->maximum()),
                      whole->locale().toString(whole->minimum()),
                      whole->locale().toString(whole->maximum()),
                      whole->prefix(),
                      whole->suffix()};
    return std::nullopt;
}

// The box's text with the keystroke's text put where the cursor or selection is.
QString typedText(const QAbstractSpinBox *box, const QString &typed)
{
    const auto *edit = box->findChild<QLineEdit *>();
    if (!edit)
        return {};
    QString text = edit->text();
    if (edit->hasSelectedText())
        return text.replace(edit->selectionStart(), edit->selectedText().size(), typed);
    return text.insert(edit->cursorPosition(), typed);
}

} // namespace

RangeNotice::RangeNotice(QObject *parent)
    : QObject(parent)
{}

RangeNotice::~RangeNotice() = default;

void RangeNotice::watch(QAbstractSpinBox *box, const QString &unit)
{
    if (!box || !(qobject_cast<QDoubleSpinBox *>(box) || qobject_cast<QSpinBox *>(box)))
        return;
    m_units.insert(box, unit);
    box->installEventFilter(this);
    connect(box, &QObject::destroyed, this, [this](QObject *gone) {
        m_units.remove(gone);
        m_startValues.remove(gone);
    });
}

QString RangeNotice::unitOf(const QAbstractSpinBox *box) const
{
    const QString unit = m_units.value(box);
    if (!unit.isEmpty())
        return unit;
    const std::optional<Bounds> bounds = boundsOf(box);
    return bounds ? bounds->suffix.trimmed() : QString();
}

QString RangeNotice::refusal(const QAbstractSpinBox *box, const QString &text) const
{
    const std::optional<Bounds> bounds = boundsOf(box);
    QString candidate = text;
    int position = candidate.size();
    if (!bounds || box->validate(candidate, position) != QValidator::Invalid)
        return {};
    QString core = text;
    if (core.startsWith(bounds->prefix))
        core.remove(0, bounds->prefix.size());
    if (core.endsWith(bounds->suffix))
        core.chop(bounds->suffix.size());
    core = core.trimmed();
    bool number = false;
    const double typed = box->locale().toDouble(core, &number);
    if (!number || (typed >= bounds->minimum && typed <= bounds->maximum))
        return {};
    const QString unit = unitOf(box);
    const auto withUnit = [&unit](const QString &value) {
        return unit.isEmpty() ? value : value + QLatin1Char(' ') + unit;
    };
    if (typed > bounds->maximum)
        return tr("%1 is above the largest value, %2")
            .arg(withUnit(core), withUnit(bounds->highest));
    return tr("%1 is below the smallest value, %2").arg(withUnit(core), withUnit(bounds->lowest));
}

QString RangeNotice::rangeText(const QAbstractSpinBox *box) const
{
    const std::optional<Bounds> bounds = boundsOf(box);
    if (!bounds)
        return {};
    const QString unit = unitOf(box);
    return unit.isEmpty() ? tr("From %1 to %2").arg(bounds->lowest, bounds->highest)
                          : tr("From %1 to %2 %3").arg(bounds->lowest, bounds->highest, unit);
}

bool RangeNotice::eventFilter(QObject *watched, QEvent *event)
{
    auto *box = qobject_cast<QAbstractSpinBox *>(watched);
    if (!box)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // Editing begins anew; its first keystroke records what the box held.
        m_startValues.remove(box);
        break;
    case QEvent::ToolTip: {
        // The range as it is now: a channel's limits change with the channel.
        const QString tip = box->toolTip();
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           tip.isEmpty() ? rangeText(box)
                                         : tip + QLatin1Char('\n') + rangeText(box),
                           box);
        return true;
    }
    case QEvent::KeyPress: {
        const QString typed = static_cast<QKeyEvent *>(event)->text();
        if (typed.isEmpty() || !typed.at(0).isPrint())
            break;
        if (!m_startValues.contains(box))
            m_startValues.insert(box, valueOf(box));
        const QString message = refusal(box, typedText(box, typed));
        if (message.isEmpty())
            break;
        setValueOf(box, m_startValues.value(box));
        box->selectAll();
        QToolTip::showText(box->mapToGlobal(QPoint(0, box->height())), message, box);
        emit refused(message);
        return true;
    }
    default:
        break;
    }
    return false;
}

} // namespace tarn2::specific::orvo5000::programmer
