#include "com/TypeLibrary.h"

#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include "tests/com/Description.h"
#include "tests/harness/Files.h"

namespace zelbar {
namespace {

/// The client's program was built against these slots, and listens to these events.
TEST(TypeLibraryTest, EveryMemberStandsInItsSlot) {
    std::string found;
    for (const IID* id : {&IID_DataConnector, &IID_ContactRecord, &IID_Contact, &IID_PIMActions,
                          &IID_PIMAction, &IID_ActionProperties, &IID_ActionProperty, &IID_CallAction}) {
        const InterfaceDescription description = describe(typeInfoOf(*id));
        found += description.name + (description.isDual ? "\n" : ", not dual\n");
        for (const MemberDescription& member : description.members)
            found += std::to_string(member.slot) + " " + member.text + "\n";
    }
    const auto entry = typeInfoOf(CLSID_cDataConnector);
    for (UINT i = 0; i < 2; ++i) {
        int flags = 0;
        HREFTYPE reference = 0;
        Com<ITypeInfo> face;
        ASSERT_EQ(entry->GetImplTypeFlags(i, &flags), S_OK);
        ASSERT_EQ(entry->GetRefTypeOfImplType(i, &reference), S_OK);
        ASSERT_EQ(entry->GetRefTypeInfo(reference, face.put()), S_OK);
        found += nameOf(*entry.get()) + (flags & IMPLTYPEFLAG_FSOURCE ? " raises " : " is a ") +
                 nameOf(*face.get());
        found += "\n";
    }
    found += "event " + nameOf(*typeInfoOf(DIID___cDataConnector).get(), 1) + "\n";
    EXPECT_EQ(harness::lines(found), harness::lines(harness::readFile(INTERFACES_FILE)));
}

}  // namespace
}  // namespace zelbar
