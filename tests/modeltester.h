// Runs QAbstractItemModelTester over the step table models, failing a test on its findings.
#pragma once

#include <QAbstractItemModelTester>
#include <QtTest>

namespace modeltester {
// rowCount() answers for any parent and column 0 numbers the rows, both by design. The tester's
// findings that follow from exactly that are set aside; any other finding fails the test.
inline QtMessageHandler passOn = nullptr;
inline void screenFindings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static const QStringList byDesign{"model->hasChildren(topIndex)",
                                      "Actual (model->parent(childIndex))",
                                      "Actual (model->data(model->index(end + 1, 0, c.parent)))",
                                      "Actual (model->data(model->index(start, 0, c.parent)))"};
    if (qstrcmp(context.category, "qt.modeltest") != 0) {
        if (type != QtDebugMsg) // the tester's dumps of the rows it compared
            passOn(type, context, text);
    } else if (std::none_of(byDesign.cbegin(), byDesign.cend(), [&](const QString &finding) {
                   return text.contains(finding);
               })) {
        QTest::qFail(qPrintable(text), context.file, context.line);
    }
}

inline void start()
{
    QLocale::setDefault(QLocale::c());
    passOn = qInstallMessageHandler(screenFindings);
}

template<typename Model, typename Step> struct Watched
{
    QList<Step> steps;
    Model model{steps, nullptr};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
};

inline QVariantList cells(const QAbstractItemModel &model, int role)
{
    QVariantList result;
    for (int cell = 0; cell < model.rowCount() * model.columnCount(); ++cell)
        result << model.index(cell / model.columnCount(), cell % model.columnCount()).data(role);
    return result;
}
} // namespace modeltester
