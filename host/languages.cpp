// Loading the compiled-in catalogues for a locale.
#include "languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

// The host's catalogues live in a static library, whose resources are not registered by a
// loader; the module's are registered when its shared library loads. Outside any namespace, as
// the resource's initialiser is declared where this is expanded.
static void registerHostCatalogues()
{
    Q_INIT_RESOURCE(tarn_bench_host_i18n);
}

namespace {

const QString kCatalogues = QStringLiteral(":/i18n");

} // namespace

namespace tarn::host {

QStringList availableLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("zh_CN")};
}

QList<QTranslator *> installTranslators(const QLocale &locale)
{
    registerHostCatalogues();
    QList<QTranslator *> installed;
    if (locale.language() == QLocale::English || locale.language() == QLocale::C)
        return installed;

    const auto install = [&](const QString &name, const QString &directory) {
        auto *translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(locale, name, QStringLiteral("_"), directory)
            && QCoreApplication::installTranslator(translator)) {
            installed.append(translator);
        } else {
            delete translator;
        }
    };
    install(QStringLiteral("tarn2_specific"), kCatalogues);
    install(QStringLiteral("tarn_bench_host"), kCatalogues);
    install(QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    return installed;
}

} // namespace tarn::host
