// The dialog and the controller a bench host window holds, without the window, for tests that
// drive uploads from the dialog to an instrument.
#pragma once

#include "commandset.h"
#include "instrumentoption.h"
#include <dialogprogrammer.h>
#include <window/benchcontroller.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace benchtest {

namespace programmer = tarn2::specific::orvo5000::programmer;

// The dialog and the controller a bench host window holds, without the window.
struct Bench
{
    Bench()
        : description(tarn::sim::InstrumentDescription::builtIn())
        , dialog(std::make_unique<programmer::DialogProgrammer>(tarn::host::optionFor(description),
                                                                nullptr))
        , controller(std::make_unique<tarn::host::BenchController>(
              dialog.get(), description, tarn::host::CommandSet()))
    {}

    ~Bench()
    {
        // The controller lets go of the dialog's signals before the dialog goes.
        controller.reset();
        dialog.reset();
    }

    bool connectTo(const QString &address)
    {
        QSignalSpy states(controller.get(), &tarn::host::BenchController::stateChanged);
        controller->connectTo(address);
        QElapsedTimer waited;
        waited.start();
        while (controller->state() == tarn::host::BenchController::State::Connecting
               && waited.elapsed() < 10000)
            states.wait(100);
        return controller->state() == tarn::host::BenchController::State::Connected;
    }

    // Appends the tab's preview `times` times, so the sequence holds that many previews.
    void append(programmer::UploadMode mode, int times)
    {
        auto *button = dialog->findChild<QPushButton *>(
            mode == programmer::UploadMode::List ? QStringLiteral("btnListTemplateAppend")
                                                 : QStringLiteral("btnDelayerTemplateAppend"));
        for (int i = 0; i < times; ++i)
            button->click();
    }

    void selectChannel(programmer::UploadMode mode, int channel)
    {
        dialog
            ->findChild<QComboBox *>(mode == programmer::UploadMode::List
                                         ? QStringLiteral("cbbListCH")
                                         : QStringLiteral("cbbDelayerCH"))
            ->setCurrentIndex(channel - 1);
    }

    // Uploads and waits for the outcome; the dialog must be usable again when it comes.
    tarn::host::UploadOutcome upload(programmer::UploadMode mode)
    {
        QSignalSpy ended(controller.get(), &tarn::host::BenchController::uploadEnded);
        dialog->uploaderStart(mode);
        if (!ended.wait(15000))
            return {false, QStringLiteral("(no outcome)"), -1, -1};
        QElapsedTimer waited;
        waited.start();
        while (controller->isUploading() && waited.elapsed() < 5000)
            QTest::qWait(10);
        return ended.first().first().value<tarn::host::UploadOutcome>();
    }

    int selectedRow(programmer::UploadMode mode) const
    {
        auto *view = dialog->findChild<QTableView *>(mode == programmer::UploadMode::List
                                                         ? QStringLiteral("tvList")
                                                         : QStringLiteral("tvDelayer"));
        return view->selectionModel()->currentIndex().row();
    }

    tarn::sim::InstrumentDescription description;
    std::unique_ptr<programmer::DialogProgrammer> dialog;
    std::unique_ptr<tarn::host::BenchController> controller;
};

} // namespace benchtest
