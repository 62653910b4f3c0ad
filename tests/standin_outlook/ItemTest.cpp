// The items' own rules.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class ItemRules : public Outlook {
  protected:
    late::Object newContact() const { return contacts().object(L"Items").object(L"Add", {2L}); }
};

TEST_F(ItemRules, NamesFollowFromEachOther) {
    const struct {
        const wchar_t* fullName;
        const wchar_t* parts;  // Title|First|Middle|Last|Suffix
        const wchar_t* shown;
        const wchar_t* lastFirst;
        const wchar_t* fileAs;
    } cases[] = {
        {L"Ada Byron", L"|Ada||Byron|", L"Ada Byron", L"Byron, Ada", L"Byron, Ada"},
        {L"Byron, Ada", L"|Ada||Byron|", L"Ada Byron", L"Byron, Ada", L"Byron, Ada"},
        {L"Dr. Ada M. K. Byron Jr.", L"Dr.|Ada|M. K.|Byron|Jr.", L"Dr. Ada M. K. Byron Jr.", L"Byron, Ada",
         L"Byron, Ada M. K."},
        {L"Byron, Jr.", L"|Byron|||Jr.", L"Byron Jr.", L"Byron", L"Byron"},
        {L"  Ada  ", L"|Ada|||", L"Ada", L"Ada", L"Ada"},
        {L"0033 1 45", L"|0033|1|45|", L"0033 1 45", L"45, 0033", L"45, 0033 1"},
        {L"", L"||||", L"", L"", L""},
    };
    for (const auto& c : cases) {
        const late::Object contact = newContact();
        contact.put(L"FullName", c.fullName);
        std::wstring parts;
        for (const wchar_t* name : {L"Title", L"FirstName", L"MiddleName", L"LastName", L"Suffix"}) {
            parts += (parts.empty() && name[0] == L'T' ? L"" : L"|") + contact.text(name);
        }
        EXPECT_EQ(parts, c.parts) << c.fullName;
        EXPECT_EQ(contact.text(L"FullName"), c.shown);
        EXPECT_EQ(contact.text(L"LastNameAndFirstName"), c.lastFirst);
        EXPECT_EQ(contact.text(L"FileAs"), c.fileAs);
    }
}

TEST_F(ItemRules, FileAsFollowsUntilItIsChosen) {
    const late::Object contact = newContact();
    contact.put(L"CompanyName", L"Analytical Engines");
    EXPECT_EQ(contact.text(L"FileAs"), L"Analytical Engines");
    contact.put(L"LastName", L"Byron");
    EXPECT_EQ(contact.text(L"FileAs"), L"Byron");
    contact.put(L"FileAs", L"Countess");
    contact.put(L"FirstName", L"Ada");
    EXPECT_EQ(contact.text(L"FileAs"), L"Countess");
    EXPECT_EQ(contact.attemptPut(L"LastNameAndFirstName", L"x").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(ItemRules, UserPropertiesKeepTheirType) {
    const late::Object contact = newContact();
    const late::Object properties = contact.object(L"UserProperties");
    EXPECT_FALSE(properties.object(L"Find", {L"EmployeeId"})) << "Nothing, not an error";
    EXPECT_FALSE(properties.object(L"Item", {L"EmployeeId"}));
    EXPECT_EQ(properties.attempt(L"Item", {1L}).description, L"Array index out of bounds.");
    const late::Object id = properties.object(L"Add", {L"EmployeeId", 3L});
    id.put(L"Value", 7L);
    EXPECT_EQ(id.get(L"Value").vt, VT_R8);
    EXPECT_EQ(late::numberOf(id.attemptPut(L"Value", L"seven")), E_INVALIDARG);
    EXPECT_EQ(properties.object(L"Add", {L"employeeid", 3L}).get(L"Value"), Value(7.0)) << "the existing one";
    EXPECT_EQ(late::numberOf(properties.attempt(L"Add", {L"EmployeeId", 1L})), E_FAIL);
}

}  // namespace
}  // namespace standin::outlook
