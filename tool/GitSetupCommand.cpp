#include "tool/GitSetupCommand.h"

#include "runtime/FileName.h"
#include "tool/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView attributeLines[] = {
    "*.[iI][nN][vV] diff=tabrix merge=tabrix -text"_L1, "*.[iI][nN][eE] diff=tabrix merge=tabrix -text"_L1};

struct Setting
{
    QString key;
    QString value;
};

/// The program as git is to call it: by its name alone where that finds it.
QString programName()
{
    const QString own = QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath();
    const QString found = QFileInfo(QStandardPaths::findExecutable(u"tabrix-tool"_s)).canonicalFilePath();
    return own == found ? u"tabrix-tool"_s : u'\'' + QString(own).replace(u'\'', u"'\\''"_s) + u'\'';
}

QList<Setting> settings()
{
    const QString program = programName();
    return {{u"diff.tabrix.command"_s, program + u" diff --git"_s}, {u"diff.tabrix.textconv"_s, program + u" text"_s},
        {u"merge.tabrix.name"_s, u"parameter files by number and field"_s},
        {u"merge.tabrix.driver"_s, program + u" merge --name %P --output %A %O %A %B"_s}};
}

/// Calls git in the user's settings or the repository's.
class Git
{
public:
    explicit Git(Session &session) : m_session(session) { }

    /// What git answers, without the line end; std::nullopt if it fails.
    std::optional<QString> ask(const QStringList &arguments);
    /// The same; the user is told if it fails.
    std::optional<QString> require(const QStringList &arguments);

private:
    Session &m_session;
    QString m_complaint;
};

std::optional<QString> Git::ask(const QStringList &arguments)
{
    QProcess process;
    process.start(u"git"_s, arguments);
    if (!process.waitForStarted(-1)) {
        m_complaint = process.errorString();
        return std::nullopt;
    }
    process.waitForFinished(-1);
    m_complaint = QString::fromUtf8(process.readAllStandardError()).trimmed();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return std::nullopt;
    }
    return fileNameFromBytes(process.readAllStandardOutput().trimmed());
}

std::optional<QString> Git::require(const QStringList &arguments)
{
    auto answer = ask(arguments);
    if (!answer) {
        m_session.say(ToolText::SetupFailed, {u"git "_s + arguments.join(u' '), m_complaint});
    }
    return answer;
}

/// The file that names the drivers for the endings; std::nullopt if git cannot tell.
std::optional<QString> attributesFile(Git &git, bool isGlobal)
{
    if (!isGlobal) {
        const auto folder = git.require({u"rev-parse"_s, u"--show-toplevel"_s});
        return folder ? std::optional(*folder + u"/.gitattributes"_s) : std::nullopt;
    }
    const auto chosen = git.ask({u"config"_s, u"--global"_s, u"--type=path"_s, u"core.attributesFile"_s});
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return chosen && !chosen->isEmpty() ? *chosen : folder + u"/git/attributes"_s;
}

/// The file's content with our lines at its end, or without them.
QByteArray withLines(const QByteArray &content, bool isRemoving)
{
    QByteArray result;
    for (const QByteArray &line : content.split('\n')) {
        const bool isOurs = std::ranges::any_of(
            attributeLines, [&line](QLatin1StringView own) { return line.trimmed() == own.data(); });
        if (!isOurs) {
            result += line + '\n';
        }
    }
    result.chop(1);
    if (!isRemoving) {
        result += result.isEmpty() || result.endsWith('\n') ? "" : "\n";
        for (const QLatin1StringView line : attributeLines) {
            result += QByteArray(line.data()) + '\n';
        }
    }
    return result;
}

int writeAttributes(const QString &fileName, bool isRemoving, Session &session)
{
    const InputFile present = QFile::exists(fileName) ? readInput(fileName) : InputFile{fileName, {}, {}};
    if (present.failure) {
        session.say(ToolText::CannotRead, {shownFileName(fileName), *present.failure});
        return Failed;
    }
    const QByteArray content = withLines(present.bytes, isRemoving);
    if (content == present.bytes) {
        return Fine;
    }
    QDir().mkpath(QFileInfo(fileName).path());
    if (const auto failure = writeOutput(fileName, content)) {
        session.say(ToolText::CannotWrite, {shownFileName(fileName), *failure});
        return Failed;
    }
    return Fine;
}

int printSettings(const QString &scope, const QString &fileName, Session &session)
{
    for (const Setting &setting : settings()) {
        session.out.put(u"git config %1 %2 \"%3\"\n"_s.arg(scope, setting.key, setting.value));
    }
    session.out.put(u"# %1\n"_s.arg(shownFileName(fileName)));
    for (const QLatin1StringView line : attributeLines) {
        session.out.put(QString(line) + u'\n');
    }
    return Fine;
}

bool configure(Git &git, const QString &scope, bool isRemoving)
{
    if (isRemoving) {
        git.ask({u"config"_s, scope, u"--remove-section"_s, u"diff.tabrix"_s});
        git.ask({u"config"_s, scope, u"--remove-section"_s, u"merge.tabrix"_s});
        return true;
    }
    const QList<Setting> all = settings();
    return std::ranges::all_of(all, [&git, &scope](const Setting &setting) {
        return git.require({u"config"_s, scope, setting.key, setting.value}).has_value();
    });
}

int runGitSetup(const QCommandLineParser &parser, Session &session)
{
    const bool isGlobal = parser.isSet(u"global"_s);
    const bool isRemoving = parser.isSet(u"remove"_s);
    const QString scope = isGlobal ? u"--global"_s : u"--local"_s;
    Git git(session);
    const auto fileName = attributesFile(git, isGlobal);
    if (!fileName) {
        return Failed;
    }
    if (parser.isSet(u"print"_s)) {
        return printSettings(scope, *fileName, session);
    }
    return configure(git, scope, isRemoving) ? writeAttributes(*fileName, isRemoving, session) : Failed;
}

void addGitSetupOptions(OptionList &options)
{
    addSwitch(options, u"global"_s, ToolText::SetupGlobalOption);
    addSwitch(options, u"print"_s, ToolText::SetupPrintOption);
    addSwitch(options, u"remove"_s, ToolText::SetupRemoveOption);
}

} // namespace

const Command gitSetupCommand{
    "git-setup"_L1, ToolText::SetupSummary, ToolText::ArgumentFiles, {}, 0, 0, addGitSetupOptions, runGitSetup};
