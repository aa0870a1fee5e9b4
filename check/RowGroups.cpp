#include "check/RowGroups.h"

#include "runtime/Digits.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::size_t fewRows = 8; ///< of which each is put into its place; more are merged with the others

} // namespace

/// A small number is its own key; others get those that follow.
int RowGroups::keyOf(const QString &text) const
{
    const int number = smallNumber(text);
    return number >= 0 || text.isEmpty() ? number : m_oddKeys.value(text, noKey);
}

int RowGroups::madeKeyOf(const QString &text)
{
    constexpr int firstOddKey = 100'000;
    const int key = keyOf(text);
    return key != noKey || text.isEmpty() ? key : *m_oddKeys.insert(text, firstOddKey + int(m_oddKeys.size()));
}

bool RowGroups::isFirst(const Row &row, Key key)
{
    return key == &Row::number ? row.isFirstOfNumber : row.isFirstOfHelp;
}

void RowGroups::setFirst(int handle, Key key, bool isFirst)
{
    if (handle >= 0 && key == &Row::number) {
        m_rows[std::size_t(handle)].isFirstOfNumber = isFirst;
    } else if (handle >= 0) {
        m_rows[std::size_t(handle)].isFirstOfHelp = isFirst;
    }
}

int RowGroups::firstOf(Key key, int value) const
{
    const auto keyOfHandle = [this, key](int handle) { return m_rows[std::size_t(handle)].*key; };
    const Handles &list = listOf(key);
    const auto found = std::ranges::lower_bound(list, value, {}, keyOfHandle);
    return value == noKey || found == list.end() || keyOfHandle(*found) != value ? -1 : *found;
}

void RowGroups::enter(int handle, const Facts &facts)
{
    constexpr quint32 saidBits = (1U << 28U) - 1;
    m_rows.resize(std::max(m_rows.size(), std::size_t(handle) + 1));
    Row &row = m_rows[std::size_t(handle)];
    row.number = madeKeyOf(facts.numberKey);
    row.help = madeKeyOf(facts.helpId);
    row.said = quint32(facts.said) & saidBits;
    row.isNew = true;
    m_new.push_back(handle);
    for (const QString &subject : facts.subjects) {
        m_newDependents.push_back({.subject = madeKeyOf(subject), .handle = handle});
    }
}

void RowGroups::leave(int handle)
{
    const Row row = std::exchange(m_rows[std::size_t(handle)], Row());
    if (row.isListed) {
        m_gone.push_back({.handle = handle, .row = row});
    }
}

void RowGroups::settle(std::span<const int> positions, std::vector<int> &concerned)
{
    const auto isOutdated = [this](int handle) { return !m_rows[std::size_t(handle)].isNew; };
    std::ranges::sort(m_new);
    m_new.erase(std::unique(m_new.begin(), m_new.end()), m_new.end()); // entered, left and entered again
    std::erase_if(m_new, isOutdated);
    std::erase_if(m_newDependents, [&](const Dependent &dependent) { return isOutdated(dependent.handle); });
    const std::vector<int> numbers = touched(&Row::number);
    const std::vector<int> helpIds = touched(&Row::help);
    dropGone();
    listNew(&Row::number);
    listNew(&Row::help);
    listNewDependents();
    const Lost lostNumbers = lost(&Row::number);
    const Lost lostHelpIds = lost(&Row::help);
    for (const int handle : m_new) {
        m_rows[std::size_t(handle)].isListed = true;
        m_rows[std::size_t(handle)].isNew = false;
    }
    m_gone = std::vector<Gone>(); // their memory, too: a large change is rare
    m_new = Handles();
    m_newDependents = std::vector<Dependent>();
    for (const int number : numbers) {
        settle(&Row::number, number, lostNumbers, positions, concerned);
    }
    for (const int helpId : helpIds) {
        settle(&Row::help, helpId, lostHelpIds, positions, concerned);
    }
}

/// The groups that rows have entered or left.
std::vector<int> RowGroups::touched(Key key) const
{
    std::vector<int> keys;
    std::ranges::transform(m_gone, std::back_inserter(keys), [key](const Gone &gone) { return gone.row.*key; });
    std::ranges::transform(
        m_new, std::back_inserter(keys), [this, key](int handle) { return m_rows[std::size_t(handle)].*key; });
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    std::erase(keys, noKey);
    return keys;
}

RowGroups::Lost RowGroups::lost(Key key) const
{
    Lost lost;
    for (const Gone &gone : m_gone) {
        if (isFirst(gone.row, key)) {
            lost.insert(gone.row.*key, gone.row.said);
        }
    }
    return lost;
}

void RowGroups::dropGone()
{
    std::vector<bool> isGone(m_rows.size());
    for (const Gone &gone : m_gone) {
        isGone[std::size_t(gone.handle)] = true;
    }
    const auto drop = [this, &isGone](Handles &list) {
        if (m_gone.size() > fewRows) {
            std::erase_if(list, [&isGone](int handle) { return isGone[std::size_t(handle)]; });
            return;
        }
        for (const Gone &gone : m_gone) {
            const auto found = std::ranges::find(list, gone.handle);
            list.erase(found, found == list.end() ? found : found + 1);
        }
    };
    drop(m_byNumber);
    drop(m_byHelp);
    if (!m_gone.empty()) {
        std::erase_if(
            m_dependents, [&isGone](const Dependent &dependent) { return isGone[std::size_t(dependent.handle)]; });
    }
}

void RowGroups::listNew(Key key)
{
    const auto keyOfHandle = [this, key](int handle) { return m_rows[std::size_t(handle)].*key; };
    Handles added = m_new;
    std::erase_if(added, [&](int handle) { return keyOfHandle(handle) == noKey; });
    Handles &list = listOf(key);
    if (added.size() <= fewRows) {
        for (const int handle : added) {
            list.insert(std::ranges::upper_bound(list, keyOfHandle(handle), {}, keyOfHandle), handle);
        }
        return;
    }
    std::ranges::stable_sort(added, {}, keyOfHandle);
    Handles merged(list.size() + added.size());
    std::ranges::merge(list, added, merged.begin(), {}, keyOfHandle, keyOfHandle);
    list = std::move(merged);
}

void RowGroups::listNewDependents()
{
    const auto middle = std::ssize(m_dependents);
    m_dependents.insert(m_dependents.end(), m_newDependents.begin(), m_newDependents.end());
    std::ranges::sort(m_dependents.begin() + middle, m_dependents.end(), {}, &Dependent::subject);
    std::ranges::inplace_merge(m_dependents, m_dependents.begin() + middle, {}, &Dependent::subject);
}

/// The first row of a number is no repetition; conditions are judged by its ranges. Rows of a help ID are compared with
/// the name of the first.
void RowGroups::settle(
    Key key, int value, const Lost &lost, std::span<const int> positions, std::vector<int> &concerned)
{
    const auto keyOfHandle = [this, key](int handle) { return m_rows[std::size_t(handle)].*key; };
    Handles &list = listOf(key);
    const auto begin = std::ranges::lower_bound(list, value, {}, keyOfHandle);
    const std::span group(begin, std::ranges::upper_bound(begin, list.end(), value, {}, keyOfHandle));
    const auto former =
        std::ranges::find_if(group, [this, key](int handle) { return isFirst(m_rows[std::size_t(handle)], key); });
    const int formerHandle = former == group.end() ? -1 : *former;
    const auto first =
        std::ranges::min_element(group, {}, [positions](int handle) { return positions[std::size_t(handle)]; });
    const int handle = first == group.end() ? -1 : *first;
    setFirst(formerHandle, key, false);
    setFirst(handle, key, true);
    if (handle >= 0) {
        std::swap(*group.begin(), *first);
    }
    const auto saidBefore = lost.constFind(value);
    const bool isLost = saidBefore != lost.constEnd();
    if (formerHandle == handle && !isLost) {
        return;
    }
    if (key == &Row::number) {
        concerned.insert(concerned.end(), {formerHandle, handle});
    }
    const bool saysTheSame = isLost && handle >= 0 && *saidBefore == m_rows[std::size_t(handle)].said;
    if (!saysTheSame) {
        concernOthers(key, value, group, concerned);
    }
}

void RowGroups::concernOthers(Key key, int value, std::span<const int> group, std::vector<int> &concerned) const
{
    if (key == &Row::help) {
        concerned.insert(concerned.end(), group.begin(), group.end());
        return;
    }
    const auto begin = std::ranges::lower_bound(m_dependents, value, {}, &Dependent::subject);
    const auto end = std::ranges::upper_bound(begin, m_dependents.end(), value, {}, &Dependent::subject);
    std::ranges::transform(begin, end, std::back_inserter(concerned), &Dependent::handle);
}
