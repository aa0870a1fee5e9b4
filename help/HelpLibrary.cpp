#include "help/HelpLibrary.h"

#include <QFileInfo>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int startContext = 1;

} // namespace

std::unique_ptr<HelpLibrary> HelpLibrary::open(const QString &helpFile)
{
    if (!QFileInfo(helpFile).isFile()) {
        return nullptr;
    }
    std::unique_ptr<HelpLibrary> library(new HelpLibrary(helpFile));
    return library->isComplete() ? std::move(library) : nullptr;
}

HelpLibrary::HelpLibrary(const QString &helpFile)
    : m_helpFile(QFileInfo(helpFile).absoluteFilePath())
    , m_namespace(QHelpEngineCore::namespaceName(m_helpFile))
    , m_engine(m_folder.filePath(u"collection.qhc"_s))
{
    m_engine.setReadOnly(false);
    m_engine.setUsesFilterEngine(true);
    if (m_namespace.isEmpty() || !m_engine.setupData() || !m_engine.registerDocumentation(m_helpFile)) {
        return;
    }
    m_engine.contentModel()->createContents({});
    m_engine.indexModel()->createIndex({});
    readLabels();
}

// If they were stopped, the threads that fill contents tree and index would free what the engine frees, too.
HelpLibrary::~HelpLibrary()
{
    const QObject &models = *m_engine.contentModel();
    for (QThread *filler : models.parent()->findChildren<QThread *>()) {
        filler->wait();
    }
}

bool HelpLibrary::isComplete() const
{
    return !data(pageOfContext(startContext)).isEmpty();
}

QUrl HelpLibrary::topic(int contextId) const
{
    const QUrl page = pageOfContext(contextId);
    return data(page).isEmpty() ? pageOfContext(startContext) : page;
}

QUrl HelpLibrary::pageOfContext(int contextId) const
{
    const QList<QHelpLink> links = m_engine.documentsForIdentifier(QString::number(contextId));
    return links.isEmpty() ? QUrl() : links.first().url;
}

QList<QUrl> HelpLibrary::pages() const
{
    // The engine's function is not const although it changes nothing.
    return const_cast<QHelpEngine &>(m_engine).files(m_namespace, QString(), u"html"_s);
}

// Lines of key=text. They are in the help file because they are in its language.
void HelpLibrary::readLabels()
{
    const QUrl startPage = pageOfContext(startContext);
    const QString lines = QString::fromUtf8(data(startPage.resolved(QUrl(u"window.txt"_s))));
    for (const QStringView line : QStringView(lines).split(u'\n', Qt::SkipEmptyParts)) {
        const qsizetype equals = line.indexOf(u'=');
        m_labels.insert(line.left(equals).trimmed().toString(), line.mid(equals + 1).trimmed().toString());
    }
}
