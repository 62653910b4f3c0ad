#include "export/ExportPlan.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "export/CategoryList.h"

namespace zelbar {

namespace {

/// The page that a contact is of; nothing when its user has taken the category away, or it was filed in
/// another language.
std::optional<ExportMode> pageOf(const ExportedContact& contact, const ExportCategories& categories) {
    const std::vector<std::wstring> filed = splitCategories(contact.categories);
    for (const ExportMode mode : {ExportMode::PhoneSet, ExportMode::Employee})
        if (std::find(filed.begin(), filed.end(), categories.of(mode)) != filed.end()) return mode;
    return {};
}

class Planner {
  public:
    Planner(const std::vector<ExportedContact>& contacts, const std::vector<EmployeeRow>& rows,
            const ExportCategories& categories)
        : contacts_(contacts), rows_(rows), taken_(rows.size()) {
        for (size_t i = 0; i < rows.size(); ++i)
            if (rows[i].employeeId) rowsOf_[*rows[i].employeeId].push_back(i);
        for (const ExportedContact& contact : contacts) pages_.push_back(pageOf(contact, categories));
        plan_.rowOfContact.resize(contacts.size());
    }

    ExportPlan plan() {
        giveRows([&](size_t contact, size_t row) { return !taken_[row] && isOfPage(contact, row); });
        giveRows([&](size_t, size_t row) { return !taken_[row]; });
        giveRows([&](size_t contact, size_t row) { return !pages_[contact] || isOfPage(contact, row); });
        for (size_t row = 0; row < rows_.size(); ++row)
            if (rows_[row].employeeId && !taken_[row]) plan_.missing.push_back(row);
        findDoubles();
        return std::move(plan_);
    }

  private:
    bool isOfPage(size_t contact, size_t row) const { return pages_[contact] == rows_[row].mode; }

    /// Gives every contact that has none yet the first row of its employee that suits it.
    template <class Suits>
    void giveRows(Suits&& suits) {
        for (size_t contact = 0; contact < contacts_.size(); ++contact) {
            if (plan_.rowOfContact[contact]) continue;
            const auto candidates = rowsOf_.find(contacts_[contact].employeeId);
            if (candidates == rowsOf_.end()) continue;
            for (const size_t row : candidates->second) {
                if (!suits(contact, row)) continue;
                plan_.rowOfContact[contact] = row;
                taken_[row] = true;
                break;
            }
        }
    }

    void findDoubles() {
        std::vector<std::vector<size_t>> contactsOf(rows_.size());
        for (size_t contact = 0; contact < contacts_.size(); ++contact)
            if (const auto row = plan_.rowOfContact[contact]; row && isOfPage(contact, *row))
                contactsOf[*row].push_back(contact);
        for (std::vector<size_t>& group : contactsOf)
            if (group.size() > 1) plan_.doubles.push_back(std::move(group));
    }

    const std::vector<ExportedContact>& contacts_;
    const std::vector<EmployeeRow>& rows_;
    std::unordered_map<long, std::vector<size_t>> rowsOf_;
    std::vector<std::optional<ExportMode>> pages_;
    std::vector<bool> taken_;
    ExportPlan plan_;
};

}  // namespace

ExportPlan planExport(const std::vector<ExportedContact>& contacts, const std::vector<EmployeeRow>& rows,
                      const ExportCategories& categories) {
    return Planner(contacts, rows, categories).plan();
}

}  // namespace zelbar
