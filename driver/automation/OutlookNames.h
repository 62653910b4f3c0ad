#pragma once

#include "automation/Member.h"

/// Outlook's object model: the classes, members and values that the driver uses.
namespace zelbar::outlook {

inline constexpr ObjectClass kApplication = 0;
inline constexpr ObjectClass kNameSpace = 1;
inline constexpr ObjectClass kFolder = 2;
inline constexpr ObjectClass kAttachment = 5;
inline constexpr ObjectClass kFolders = 15;
inline constexpr ObjectClass kItems = 16;
inline constexpr ObjectClass kAttachments = 18;
inline constexpr ObjectClass kExplorer = 34;
inline constexpr ObjectClass kInspector = 35;
inline constexpr ObjectClass kUserProperties = 38;
inline constexpr ObjectClass kUserProperty = 39;
inline constexpr ObjectClass kContact = 40;
inline constexpr ObjectClass kTable = 120;
inline constexpr ObjectClass kColumns = 150;

inline constexpr long kDefaultContacts = 10;
inline constexpr long kDefaultJournal = 11;
inline constexpr long kContactItemType = 2;

inline constexpr const wchar_t* kProgId = L"Outlook.Application";

// Every object
inline constexpr Member Class{L"Class"};
inline constexpr Member Parent{L"Parent", kAskForClass};
/// An item's: only what lies above a folder can be something else.
inline constexpr Member ItemFolder{L"Parent", kFolder};
inline constexpr Member Name{L"Name"};
inline constexpr Member Count{L"Count"};
inline constexpr Member EntryID{L"EntryID"};
inline constexpr Member StoreID{L"StoreID"};

// Application and name space
inline constexpr Member Version{L"Version"};
inline constexpr Member GetNamespace{L"GetNamespace", kNameSpace};
inline constexpr Member Type{L"Type"};
inline constexpr Member GetItemFromID{L"GetItemFromID", kAskForClass};
/// Where a contact is looked for by its identifier. What is none refuses a contact's numbers, and is asked by
/// name.
inline constexpr Member GetContactItem{L"GetItemFromID", kContact};
inline constexpr Member GetFolderFromID{L"GetFolderFromID", kFolder};
inline constexpr Member GetDefaultFolder{L"GetDefaultFolder", kFolder};

// Windows
inline constexpr Member ActiveExplorer{L"ActiveExplorer", kExplorer};
inline constexpr Member ActiveInspector{L"ActiveInspector", kInspector};
inline constexpr Member CurrentFolder{L"CurrentFolder", kFolder};
inline constexpr Member CurrentItem{L"CurrentItem", kAskForClass};

// Folders
inline constexpr Member GetExplorer{L"GetExplorer", kExplorer};
inline constexpr Member Items{L"Items", kItems};
inline constexpr Member ItemAt{L"Item", kAskForClass};
inline constexpr Member Folders{L"Folders", kFolders};
inline constexpr Member FolderAt{L"Item", kFolder};
inline constexpr Member AddFolder{L"Add", kFolder, kLasting};
inline constexpr Member DefaultItemType{L"DefaultItemType"};

// A folder's table, of Outlook 2007 and later
inline constexpr Member GetTable{L"GetTable", kTable};
inline constexpr Member Columns{L"Columns", kColumns};
inline constexpr Member RemoveAll{L"RemoveAll"};
inline constexpr Member AddColumn{L"Add"};
inline constexpr Member EndOfTable{L"EndOfTable"};
inline constexpr Member GetArray{L"GetArray"};
inline constexpr Member MessageClass{L"MessageClass"};

// Contact items
inline constexpr Member Save{L"Save", kUnknownClass, kLasting};
inline constexpr Member FirstName{L"FirstName"};
inline constexpr Member LastName{L"LastName"};
inline constexpr Member LastNameAndFirstName{L"LastNameAndFirstName"};
inline constexpr Member FileAs{L"FileAs"};
inline constexpr Member CompanyName{L"CompanyName"};
inline constexpr Member Department{L"Department"};
inline constexpr Member Email1Address{L"Email1Address", kUnknownClass, kAsksUser};
inline constexpr Member Email2Address{L"Email2Address", kUnknownClass, kAsksUser};
inline constexpr Member Email3Address{L"Email3Address", kUnknownClass, kAsksUser};
inline constexpr Member HasPicture{L"HasPicture"};
inline constexpr Member Attachments{L"Attachments", kAttachments};
inline constexpr Member AttachmentAt{L"Item", kAttachment};
inline constexpr Member DisplayName{L"DisplayName"};
inline constexpr Member FileName{L"FileName"};
inline constexpr Member SaveAsFile{L"SaveAsFile"};
inline constexpr Member UserProperties{L"UserProperties", kUserProperties};
inline constexpr Member UserPropertyAt{L"Item", kUserProperty};
inline constexpr Member Value{L"Value"};
inline constexpr Member GetInspector{L"GetInspector", kInspector};
inline constexpr Member Display{L"Display"};

// Telephone numbers of a contact item
inline constexpr Member BusinessTelephoneNumber{L"BusinessTelephoneNumber"};
inline constexpr Member Business2TelephoneNumber{L"Business2TelephoneNumber"};
inline constexpr Member HomeTelephoneNumber{L"HomeTelephoneNumber"};
inline constexpr Member Home2TelephoneNumber{L"Home2TelephoneNumber"};
inline constexpr Member AssistantTelephoneNumber{L"AssistantTelephoneNumber"};
inline constexpr Member MobileTelephoneNumber{L"MobileTelephoneNumber"};
inline constexpr Member CarTelephoneNumber{L"CarTelephoneNumber"};
inline constexpr Member PrimaryTelephoneNumber{L"PrimaryTelephoneNumber"};
inline constexpr Member CallbackTelephoneNumber{L"CallbackTelephoneNumber"};
inline constexpr Member CompanyMainTelephoneNumber{L"CompanyMainTelephoneNumber"};
inline constexpr Member ISDNNumber{L"ISDNNumber"};
inline constexpr Member BusinessFaxNumber{L"BusinessFaxNumber"};
inline constexpr Member HomeFaxNumber{L"HomeFaxNumber"};
inline constexpr Member OtherTelephoneNumber{L"OtherTelephoneNumber"};
inline constexpr Member OtherFaxNumber{L"OtherFaxNumber"};
inline constexpr Member PagerNumber{L"PagerNumber"};
inline constexpr Member RadioTelephoneNumber{L"RadioTelephoneNumber"};
inline constexpr Member TelexNumber{L"TelexNumber"};
inline constexpr Member TTYTDDTelephoneNumber{L"TTYTDDTelephoneNumber"};

// What the call actions make and open
inline constexpr ObjectClass kRecipients = 17;
inline constexpr ObjectClass kJournalEntry = 42;
inline constexpr ObjectClass kMail = 43;
inline constexpr long kMailItemType = 0;
inline constexpr long kJournalItemType = 4;
/// How a window closes: Outlook asks the user whether to save what he changed.
inline constexpr long kCloseWithPrompt = 2;

inline constexpr Member CreateMail{L"CreateItem", kMail};
inline constexpr Member CreateJournalEntry{L"CreateItem", kJournalEntry};
inline constexpr Member AddContact{L"Add", kContact, kLasting};
inline constexpr Member AddRecipient{L"Add", kUnknownClass, kLasting};
inline constexpr Member Recipients{L"Recipients", kRecipients};
inline constexpr Member FullName{L"FullName"};
inline constexpr Member Subject{L"Subject"};
inline constexpr Member Body{L"Body", kUnknownClass, kAsksUser};
inline constexpr Member Start{L"Start"};
inline constexpr Member End{L"End"};
inline constexpr Member Duration{L"Duration"};
inline constexpr Member Send{L"Send", kUnknownClass, kLasting | kAsksUser};
inline constexpr Member Close{L"Close", kUnknownClass, kLasting | kAsksUser};

// What the export folder needs
/// The type of a user property that holds a number.
inline constexpr long kNumberProperty = 3;

inline constexpr Member AddUserProperty{L"Add", kUserProperty, kLasting};
inline constexpr Member Categories{L"Categories"};
inline constexpr Member BillingInformation{L"BillingInformation"};
inline constexpr Member Delete{L"Delete", kUnknownClass, kLasting};

}  // namespace zelbar::outlook
