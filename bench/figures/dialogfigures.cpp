// Figures of the dialog: edit to preview, sequence edits, the upload chain, construction and first
// paint, and the memory a held step costs.
#include "common.h"
#include "figuretable.h"

#include "dialogprogrammer.h"
#include "helper.h"
#include "listuploader.h"
#include "ui_dialogprogrammer.h"

#include <QtWidgets>

#include <malloc.h>

#include <chrono>
#include <memory>

using namespace tarn2::specific::orvo5000::programmer;

namespace figures {

namespace {

using Clock = std::chrono::steady_clock;

// One dialog as a user has it: shown at 1280x800 (or hidden), the List tab in front.
class Rig
{
public:
    explicit Rig(bool shown)
        : dialog(std::make_unique<DialogProgrammer>(benchOption()))
    {
        dialog->resize(1280, 800);
        if (shown) {
            dialog->show();
            QCoreApplication::processEvents();
        }
    }

    template<typename T = QWidget> T *w(const char *name) const
    {
        return dialog->findChild<T *>(QString::fromLatin1(name));
    }

    QAbstractItemModel *sequence() const { return w<QTableView>("tvList")->model(); }

    // A Sine template of `n` one-tick steps, entered through its editors as a user would.
    void preview(long n)
    {
        w<QComboBox>("cbbListTempType")->setCurrentIndex(0);
        w<QDoubleSpinBox>("sbListTempInterval0")->setValue(0.001);
        auto *period = w<QDoubleSpinBox>("sbListTempPeriod0");
        period->setValue(n / 1000.0);
        emit period->editingFinished();
    }

    // A sequence of `n` steps, and the default 30-step preview to append from.
    void fill(long n)
    {
        preview(n);
        w<QPushButton>("btnListTemplateAppend")->click();
        preview(30);
        paint();
    }

    // What the user sees after an edit: the plots and the table painted now, not later.
    void paint()
    {
        if (!dialog->isVisible())
            return;
        w("plotList")->repaint();
        w("plotListTemplate")->repaint();
        w<QTableView>("tvList")->viewport()->repaint();
        w<QTableView>("tvListTemplate")->viewport()->repaint();
    }

    // Right-clicks the sequence table and picks `entry`, as the user would; returns how long the
    // picked action took (the menu's own opening is not counted).
    double pick(const QString &entry)
    {
        double taken = 0.0;
        QTimer::singleShot(0, dialog.get(), [&] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            for (QAction *action : menu->actions()) {
                if (action->text() == entry && action->isEnabled()) {
                    const Clock::time_point start = Clock::now();
                    action->trigger();
                    taken = std::chrono::duration<double>(Clock::now() - start).count();
                }
            }
            menu->close();
        });
        QTableView *view = w<QTableView>("tvList");
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), view->mapToGlobal({4, 4}));
        QApplication::sendEvent(view, &event);
        return taken;
    }

    void selectRow(int row)
    {
        QTableView *view = w<QTableView>("tvList");
        view->selectionModel()->setCurrentIndex(view->model()->index(row, 1),
                                                QItemSelectionModel::ClearAndSelect
                                                    | QItemSelectionModel::Rows);
    }

    std::unique_ptr<DialogProgrammer> dialog;
};

double elapsed(const std::function<void()> &work)
{
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The least any refresh of the sequence must do after an edit: the change on a bare list and
// both curves' points recomputed into buffers that are already there.
struct BareSequence
{
    explicit BareSequence(long n)
    {
        for (long i = 0; i < n; ++i)
            steps.append(ListData(i % 30, 0.5, 0.001));
        x.resize(2 * static_cast<std::size_t>(n) + 64);
        voltage.resize(x.size());
        current.resize(x.size());
    }

    void points()
    {
        double t = 0.0;
        std::size_t k = 0;
        for (const ListData &step : qAsConst(steps)) {
            x[k] = t;
            voltage[k] = step.voltage;
            current[k] = step.current;
            t = std::trunc(t + step.time * 1000.0);
            x[k + 1] = t;
            voltage[k + 1] = step.voltage;
            current[k + 1] = step.current;
            k += 2;
        }
        keep(k);
    }

    QList<ListData> steps;
    std::vector<double> x;
    std::vector<double> voltage;
    std::vector<double> current;
};

Goal frameGoal(long n)
{
    return Goal{0.0, n >= 1000000 ? 0.150 : (n >= 100000 ? 0.016 : 0.0)};
}

void editCell(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(true);
    rig.fill(n);
    BareSequence bare(n);
    QAbstractItemModel *model = rig.sequence();
    const QModelIndex cell = model->index(static_cast<int>(n / 2), 1);
    int round = 0;
    measure(
        state,
        [&] {
            model->setData(cell, round % 2 ? 1.5 : 2.5, Qt::EditRole);
            rig.paint();
        },
        [&] {
            bare.steps[static_cast<int>(n / 2)].voltage = round % 2 ? 1.5 : 2.5;
            bare.points();
        },
        frameGoal(n),
        {},
        [&] { ++round; });
}

void editAppend(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(true);
    rig.fill(n);
    BareSequence bare(n);
    const QList<ListData> preview = bare.steps.mid(0, 30);
    QPushButton *append = rig.w<QPushButton>("btnListTemplateAppend");
    measure(
        state,
        [&] {
            append->click();
            rig.paint();
        },
        [&] {
            bare.steps.append(preview);
            bare.points();
        },
        frameGoal(n),
        {},
        [&] {
            rig.pick(QStringLiteral("Delete")); // the appended rows are the selection
            bare.steps.erase(bare.steps.end() - 30, bare.steps.end());
        });
}

void measureSelfTimed(benchmark::State &state,
                      const std::function<double()> &figure,
                      const std::function<void()> &limit,
                      Goal goal,
                      const std::function<void()> &prepare,
                      const std::function<void()> &cleanup)
{
    double taken = 0.0;
    // The figure times itself; measure() sees a no-op and the recorded time is replaced below.
    std::vector<double> figureTimes;
    std::vector<double> limitTimes;
    for (auto _ : state) {
        if (prepare)
            prepare();
        taken = figure();
        limitTimes.push_back(elapsed(limit));
        if (cleanup)
            cleanup();
        figureTimes.push_back(taken);
        state.SetIterationTime(taken);
    }
    std::sort(figureTimes.begin(), figureTimes.end());
    std::sort(limitTimes.begin(), limitTimes.end());
    state.counters["value"] = figureTimes[figureTimes.size() / 2];
    state.counters["limit"] = limitTimes[limitTimes.size() / 2];
    state.counters["bytes"] = 0;
    state.counters["goal_ratio"] = goal.ratio;
    state.counters["goal_s"] = goal.seconds;
}

void editDelete(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(true);
    rig.fill(n);
    BareSequence bare(n);
    const int row = static_cast<int>(n / 2);
    measureSelfTimed(
        state,
        [&] {
            const double taken = rig.pick(QStringLiteral("Delete"));
            return taken + elapsed([&] { rig.paint(); });
        },
        [&] {
            bare.steps.removeAt(row);
            bare.points();
        },
        frameGoal(n),
        [&] { rig.selectRow(row); },
        [&] {
            rig.pick(QStringLiteral("Insert"));
            bare.steps.insert(row, ListData());
        });
}

void editClear(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(true);
    rig.fill(n);
    BareSequence bare(n);
    QList<ListData> kept;
    measureSelfTimed(
        state,
        [&] {
            const double taken = rig.pick(QStringLiteral("Clear"));
            return taken + elapsed([&] { rig.paint(); });
        },
        [&] {
            kept = bare.steps;
            bare.steps.clear();
            kept = QList<ListData>(); // the steps go here, as they go in the dialog
        },
        frameGoal(n),
        {},
        [&] {
            rig.fill(n);
            BareSequence fresh(n);
            bare.steps = fresh.steps;
        });
}

// Edit to preview: a period typed into the Sine editor, regenerated, replotted and painted.
void editToPreview(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(true);
    rig.preview(n);
    auto *period = rig.w<QDoubleSpinBox>("sbListTempPeriod0");
    ListTemplateParam param;
    resetListTemplateParam(param, ListSine);
    param.interval = 0.001;
    int round = 0;
    measure(
        state,
        [&] {
            period->setValue((n - round % 2) / 1000.0);
            emit period->editingFinished();
            rig.paint();
        },
        [&] {
            // The bare limit: the same steps from a bare loop into the same list type.
            param.period = (n - round % 2) / 1000.0;
            QList<ListData> steps;
            steps.reserve(static_cast<int>(n));
            const int ticks = static_cast<int>(param.period * 1000.0 + 0.5);
            for (int i = 0; i < ticks; ++i) {
                const double angle = static_cast<double>(i) * 6.283185307179586 / ticks;
                steps.append(ListData((std::sin(angle) + 1.0) / 2.0 * 3.0, 3.0, 0.001));
            }
            keep(steps);
        },
        Goal{0.0, n >= 100000 && n < 1000000 ? 0.020 : 0.0},
        {},
        [&] { ++round; });
}

// The upload chain per step: uploaderNext() through the dialog to the host's signal.
void uploadChain(benchmark::State &state, bool shown)
{
    const long n = state.range(0);
    Rig rig(shown);
    rig.fill(n);
    const QList<ListData> steps = BareSequence(n).steps;
    bool finished = false;
    QObject::connect(
        rig.dialog.get(), &DialogProgrammer::uploaderFinished, [&] { finished = true; });
    measure(
        state,
        [&] {
            finished = false;
            rig.dialog->uploaderStart(UploadMode::List);
            for (long i = 0; i <= n && !finished; ++i) {
                rig.dialog->uploaderNext();
                if (shown)
                    QCoreApplication::processEvents();
            }
            rig.dialog->uploaderStop();
        },
        [&] {
            // The uploader alone, driven by direct calls: the chain without the dialog.
            ListUploader uploader(steps, nullptr);
            double volts = 0.0;
            QObject::connect(&uploader,
                             &ProgrammerUploader::nextData,
                             &uploader,
                             [&volts](int, const ProgrammerData &data) {
                                 volts += static_cast<const ListData &>(data).voltage;
                             });
            uploader.start();
            for (long i = 0; i < n; ++i)
                uploader.next();
            uploader.stop();
            keep(volts);
        },
        {},
        {},
        [] { QCoreApplication::processEvents(); });
    // Per step.
    state.counters["value"] = state.counters["value"] / n;
    state.counters["limit"] = state.counters["limit"] / n;
}

void construction(benchmark::State &state, bool paint)
{
    std::unique_ptr<DialogProgrammer> dialog;
    std::unique_ptr<QDialog> bare;
    std::unique_ptr<Ui::DialogProgrammer> bareUi;
    measure(
        state,
        [&] {
            dialog = std::make_unique<DialogProgrammer>(benchOption());
            if (paint) {
                dialog->resize(1280, 800);
                dialog->show();
                dialog->repaint();
            }
        },
        [&] {
            // The generated layout alone, on a bare dialog: the widgets without the module.
            bare = std::make_unique<QDialog>();
            bareUi = std::make_unique<Ui::DialogProgrammer>();
            bareUi->setupUi(bare.get());
            if (paint) {
                bare->resize(1280, 800);
                bare->show();
                bare->repaint();
            }
        },
        {},
        {},
        [&] {
            dialog.reset();
            bare.reset();
            bareUi.reset();
            QCoreApplication::processEvents();
        });
}

std::size_t heapInUse()
{
    malloc_trim(0);
    return mallinfo2().uordblks;
}

// What one more held step costs: the step, its table row and its points in the sequence plot.
void bytesPerStep(benchmark::State &state)
{
    const long n = state.range(0);
    Rig rig(false);
    rig.preview(n);
    const std::size_t before = heapInUse();
    rig.w<QPushButton>("btnListTemplateAppend")->click();
    const std::size_t after = heapInUse();
    record(state, static_cast<double>(after - before) / n, 3 * sizeof(double));
}

const bool registered = [] {
    registerSized("preview.list.sine", editToPreview);
    registerSized("edit.cell", editCell);
    registerSized("edit.append30", editAppend);
    registerSized("edit.delete1", editDelete);
    registerSized("edit.clear", editClear);
    registerSized(
        "upload.hidden.per_step", [](benchmark::State &s) { uploadChain(s, false); }, {10000});
    registerSized(
        "upload.shown.per_step", [](benchmark::State &s) { uploadChain(s, true); }, {2048});
    registerSized("dialog.construct", [](benchmark::State &s) { construction(s, false); }, {1});
    registerSized("dialog.first_paint", [](benchmark::State &s) { construction(s, true); }, {1});
    registerSized("memory.bytes_per_step", bytesPerStep, {100000, 1000000});
    return true;
}();

} // namespace

} // namespace figures
