// Modal dialogs for the user at the bench.
#include "widgetprompter.h"

#include <QFileDialog>
#include <QMessageBox>

namespace tarn::host {

namespace {
QString filter()
{
    return QObject::tr("CSV files (*.csv);;All files (*)");
}
} // namespace

QString WidgetPrompter::openFileName(QWidget *parent, const QString &title, const QString &folder)
{
    return QFileDialog::getOpenFileName(parent, title, folder, filter());
}

QString WidgetPrompter::saveFileName(QWidget *parent, const QString &title, const QString &folder)
{
    return QFileDialog::getSaveFileName(parent, title, folder, filter());
}

Prompter::Answer
WidgetPrompter::question(QWidget *parent, const QString &title, const QString &text)
{
    return QMessageBox::question(parent, title, text, QMessageBox::Yes | QMessageBox::No)
                   == QMessageBox::Yes
               ? Answer::Yes
               : Answer::No;
}

Prompter::Answer WidgetPrompter::unsavedChanges(QWidget *parent, const QString &text)
{
    switch (QMessageBox::warning(parent,
                                 QObject::tr("Unsaved sequence"),
                                 text,
                                 QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                                 QMessageBox::Save)) {
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

void WidgetPrompter::warning(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox::warning(parent, title, text);
}

} // namespace tarn::host
