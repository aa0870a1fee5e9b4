#include "check/RowGroups.h"

#include <algorithm>
#include <utility>

int RowGroups::firstOf(const Groups &groups, const QString &key)
{
    const auto found = groups.find(key);
    return found == groups.end() ? -1 : found->second.first;
}

RowGroups::Group *RowGroups::groupOf(Groups &groups, const QString &key)
{
    if (key.isEmpty()) {
        return nullptr;
    }
    const auto entry = groups.try_emplace(key).first;
    entry->second.key = &entry->first;
    return &entry->second;
}

void RowGroups::touch(Group *group, std::vector<Group *> &touched)
{
    if (group != nullptr && !group->isTouched) {
        group->isTouched = true;
        touched.push_back(group);
    }
}

void RowGroups::enter(int handle, const Facts &facts)
{
    m_links.resize(std::max(m_links.size(), std::size_t(handle) + 1));
    Links &links = m_links[std::size_t(handle)];
    const Member member{.handle = handle, .entry = links.entry};
    links.ranges = facts.ranges;
    links.name = facts.name;
    links.number = groupOf(m_numbers, facts.numberKey);
    if (links.number != nullptr) {
        links.number->members.push_back(member);
        touch(links.number, m_touchedNumbers);
    }
    links.help = groupOf(m_helpIds, facts.helpId);
    if (links.help != nullptr) {
        links.help->members.push_back(member);
        touch(links.help, m_touchedHelpIds);
    }
    for (const QString &subject : facts.subjects) {
        Group *group = groupOf(m_numbers, subject);
        group->dependents.push_back(member);
        links.subjects.push_back(group);
        touch(group, m_touchedNumbers);
    }
}

void RowGroups::leave(int handle)
{
    Links &links = m_links[std::size_t(handle)];
    ++links.entry;
    touch(std::exchange(links.number, nullptr), m_touchedNumbers);
    touch(std::exchange(links.help, nullptr), m_touchedHelpIds);
    for (Group *group : links.subjects) {
        touch(group, m_touchedNumbers);
    }
    links.subjects.clear();
}

void RowGroups::settle(std::span<const int> positions, std::vector<int> &concerned)
{
    for (Group *group : m_touchedNumbers) {
        settleNumber(*group, positions, concerned);
        group->isTouched = false;
        if (group->members.empty() && group->dependents.empty()) {
            m_numbers.erase(QString(*group->key));
        }
    }
    for (Group *group : m_touchedHelpIds) {
        settleHelp(*group, positions, concerned);
        group->isTouched = false;
        if (group->members.empty()) {
            m_helpIds.erase(QString(*group->key));
        }
    }
    m_touchedNumbers.clear();
    m_touchedHelpIds.clear();
}

void RowGroups::compact(std::vector<Member> &members) const
{
    std::erase_if(
        members, [this](const Member &member) { return m_links[std::size_t(member.handle)].entry != member.entry; });
}

bool RowGroups::findFirst(Group &group, std::size_t Links::*content, std::span<const int> positions) const
{
    compact(group.members);
    const auto position = [positions](const Member &member) { return positions[std::size_t(member.handle)]; };
    const auto found = std::ranges::min_element(group.members, {}, position);
    const int first = found == group.members.end() ? -1 : found->handle;
    const std::size_t said = first < 0 ? 0 : m_links[std::size_t(first)].*content;
    const bool isSame = first == group.first && said == group.firstContent;
    group.first = first;
    group.firstContent = said;
    return !isSame;
}

/// The first row of a number is no repetition; conditions are judged by its ranges.
void RowGroups::settleNumber(Group &group, std::span<const int> positions, std::vector<int> &concerned) const
{
    const int former = group.first;
    const bool isOther = findFirst(group, &Links::ranges, positions);
    compact(group.dependents);
    if (former != group.first) {
        concerned.insert(concerned.end(), {former, group.first});
    }
    if (isOther) {
        std::ranges::transform(group.dependents, std::back_inserter(concerned), &Member::handle);
    }
}

/// Rows of a help ID are compared with the name of the first.
void RowGroups::settleHelp(Group &group, std::span<const int> positions, std::vector<int> &concerned) const
{
    if (findFirst(group, &Links::name, positions)) {
        std::ranges::transform(group.members, std::back_inserter(concerned), &Member::handle);
    }
}
