// What the user of the long day does with windows and programs.

#include "tests/longday/Day.h"
#include "tests/longday/DayCompare.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

// Windows and programs

bool Day::changeWindow()
{
    if (program().windows.size() < 2) {
        return false;
    }
    const int number = oneOf(program().windows).number;
    say(u"to %1"_s.arg(number));
    run({{u"do"_s, u"window"_s}, {u"number"_s, number}});
    if (number != program().active) {
        program().activate(number);
    }
    return true;
}

bool Day::changeProgram()
{
    comeToFront(1 - m_front);
    return true;
}

/// The other one gets the focus.
bool Day::minimise()
{
    if (m_model.programs.at(size_t(1 - m_front)).isMinimised) {
        return false;
    }
    run({{u"do"_s, u"minimise"_s}});
    program().isMinimised = true;
    comeToFront(1 - m_front);
    return true;
}

bool Day::takeForeignText()
{
    const QString text =
        oneOf(QStringList{u"x\ty"_s, u"x\ty\r\nz"_s, u"50\r\n"_s, u"Name 8"_s, u"40"_s, u"<b>7</b>"_s, QString()});
    QGuiApplication::clipboard()->setText(text);
    for (const int number : {0, 1}) {
        m_model.takeForeignText(number, text);
    }
    return true;
}

bool Day::fillDisk()
{
    if (!m_disk.canBeFull() || m_disk.isFull()) {
        return false;
    }
    m_disk.fill();
    return true;
}

bool Day::makeRoom()
{
    if (!m_disk.isFull()) {
        return false;
    }
    m_disk.makeRoom();
    return true;
}

// Recovery

bool Day::refreshRecovery()
{
    run({{u"do"_s, u"refresh"_s}});
    for (DayWindow &window : program().windows) {
        window.isCopied();
    }
    return true;
}

bool Day::killProgram()
{
    takeForeignText(); // what it has on the clipboard would go with it
    m_peers.at(size_t(m_front)).kill();
    endProgram();
    return true;
}

/// At any moment of a save that asks nothing and changes no list.
bool Day::killInASave()
{
    constexpr int longest = 15'000; // microseconds; a save takes some thousand
    if (program().active == 0 || m_disk.isFull() || !window().comesBack()
        || !m_model.storedFiles().contains(window().caption)
        || m_model.replacesForeign(m_front, window(), window().caption)) {
        return false;
    }
    const QString path = window().caption;
    const auto before = read(path);
    const QByteArray after = window().bytes();
    takeForeignText(); // as for a kill
    m_peers.at(size_t(m_front)).send({{u"do"_s, u"press"_s}, {u"text"_s, u"Ctrl+S"_s}});
    QThread::usleep(unsigned(upTo(0, longest)));
    m_peers.at(size_t(m_front)).kill();
    const auto left = read(path);
    const bool isSaved = left == after;
    if (before && left != before && !m_torn.contains(path) && !isKept(*before)) {
        complain(u"the earlier content of %1 is nowhere"_s.arg(path));
    }
    if (left != before && !isSaved) {
        m_torn << path;
        say(u"which leaves a part"_s);
    }
    left ? void(m_model.files[path] = *left) : void(m_model.files.remove(path));
    ++m_counts[isSaved ? u"(killed after the file was written)"_s : u"(killed before that)"_s];
    window().mustComeBack = window().mustComeBack && !isSaved;
    endProgram();
    return true;
}

/// The program is dead or has ended.
void Day::endProgram()
{
    m_focusHasMoved = true;
    for (const DayCopy &copy : program().leftBehind) {
        m_model.ofTheDead.push_back({{copy}, true});
    }
    for (const DayWindow &window : program().windows) {
        if (!window.copies.empty()) {
            m_model.ofTheDead.push_back({window.copies, window.mustComeBack});
        }
    }
    restart();
}

void Day::restart()
{
    m_peers.at(size_t(m_front)).start();
    const QJsonObject shown = run({{u"do"_s, u"awaitMaximised"_s}}); // however the last one ended
    m_model.start(m_front, recovered(shown));
    adoptActive(shown);
}

/// What has come back, held against what had to and what could.
std::vector<DayCopy> Day::recovered(const QJsonObject &shown)
{
    std::vector<DayCopy> back;
    const QJsonArray windows = shown[u"windows"_s].toArray();
    for (const auto &value : windows) {
        const QJsonObject window = value.toObject();
        if (window[u"number"_s].toInt() == 1) {
            continue; // the empty one of every start
        }
        const DayCopy *found = nullptr;
        for (auto left = m_model.ofTheDead.begin(); left != m_model.ofTheDead.end(); ++left) {
            const auto same = std::ranges::find_if(
                left->copies, [&](const DayCopy &copy) { return shows(window, copy.caption, copy.rows); });
            if (same != left->copies.end()) {
                back.push_back(*same);
                found = &back.back();
                m_model.ofTheDead.erase(left);
                break;
            }
        }
        if (!found) {
            complain(u"%1 has come back as it never was"_s.arg(window[u"caption"_s].toString()));
        }
    }
    for (const DayLeft &left : m_model.ofTheDead) {
        if (left.must) {
            complain(u"%1 has not come back"_s.arg(left.copies.front().caption));
        }
    }
    m_model.ofTheDead.clear();
    m_counts[u"(documents that came back)"_s] += int(back.size());
    return back;
}
