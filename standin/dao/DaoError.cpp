#include "standin/dao/DaoError.h"

#include <algorithm>
#include <array>

namespace standin::dao {
namespace {

struct Message {
    int number;
    const wchar_t* text;  // '|' stands for the first argument, '^' for the second
};

constexpr const wchar_t* kFolderAccess =
    L"The Microsoft Jet database engine cannot open the file '|'.  It is already opened exclusively by "
    L"another "
    L"user, or you need permission to view its data.";

constexpr std::array kMessages{
    Message{3001, L"Invalid argument."},
    Message{3003, L"Could not start transaction; too many transactions already nested."},
    Message{3010, L"Table '|' already exists."},
    Message{3020, L"Update or CancelUpdate without AddNew or Edit."},
    Message{3021, L"No current record."},
    Message{
        3022,
        L"The changes you requested to the table were not successful because they would create duplicate "
        L"values in the index, primary key, or relationship.  Change the data in the field or fields that "
        L"contain duplicate data, remove the index, or redefine the index to permit duplicate entries and "
        L"try "
        L"again."},
    Message{3024, L"Could not find file '|'."},
    Message{3026, L"Not enough space on disk."},
    Message{3027, L"Cannot update.  Database or object is read-only."},
    Message{3029, L"Not a valid account name or password."},
    Message{3034, L"You tried to commit or rollback a transaction without first beginning a transaction."},
    Message{3044,
            L"'|' is not a valid path.  Make sure that the path name is spelled correctly and that you are "
            L"connected to the server on which the file resides."},
    Message{3045, L"Could not use '|'; file already in use."},
    Message{
        3049,
        L"Cannot open database '|'.  It may not be a database that your application recognizes, or the file "
        L"may be corrupt."},
    Message{3051, kFolderAccess},
    Message{3061, L"Too few parameters. Expected |."},
    Message{3065, L"Cannot execute a select query."},
    Message{3075, L"| in query expression '^'."},
    Message{3078,
            L"The Microsoft Jet database engine cannot find the input table or query '|'.  Make sure it "
            L"exists and "
            L"that its name is spelled correctly."},
    Message{
        3079,
        L"The specified field '|' could refer to more than one table listed in the FROM clause of your SQL "
        L"statement."},
    Message{3085, L"Undefined function '|' in expression."},
    Message{3127,
            L"The INSERT INTO statement contains the following unknown field name: '|'.  Make sure you have "
            L"typed the name correctly, and try the operation again."},
    Message{3129, L"Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
    Message{3131, L"Syntax error in FROM clause."},
    Message{3134, L"Syntax error in INSERT INTO statement."},
    Message{3138, L"Syntax error in ORDER BY clause."},
    Message{3141,
            L"The SELECT statement includes a reserved word or an argument name that is misspelled or "
            L"missing, or "
            L"the punctuation is incorrect."},
    Message{3142, L"Characters found after end of SQL statement."},
    Message{3144, L"Syntax error in UPDATE statement."},
    Message{3163,
            L"The field is too small to accept the amount of data you attempted to add.  Try inserting or "
            L"pasting "
            L"less data."},
    Message{3167, L"Record is deleted."},
    Message{3192, L"Could not find output table '|'."},
    Message{3204, L"Database already exists."},
    Message{3218, L"Could not update; currently locked."},
    Message{3219, L"Invalid operation."},
    Message{3251, L"Operation is not supported for this type of object."},
    Message{3260, L"Could not update; currently locked by user 'Admin' on machine '|'."},
    Message{3265, L"Item not found in this collection."},
    Message{3289, L"Syntax error in CONSTRAINT clause."},
    Message{3290, L"Syntax error in CREATE TABLE statement."},
    Message{3291, L"Syntax error in CREATE INDEX statement."},
    Message{3292, L"Syntax error in field definition."},
    Message{3295, L"Syntax error in DROP TABLE or DROP INDEX."},
    Message{
        3314,
        L"The field '|' cannot contain a Null value because the Required property for this field is set to "
        L"True.  Enter a value in this field."},
    Message{3343, L"Unrecognized database format '|'."},
    Message{3346, L"Number of query values and destination fields are not the same."},
    Message{3356,
            L"You attempted to open a database that is already opened exclusively by user 'Admin' on machine "
            L"'^'.  "
            L"Try again when the database is available."},
    Message{3372, L"No such index '|' on table '^'."},
    Message{3375, L"Table '|' already has an index named '^'."},
    Message{3376, L"Table '|' does not exist."},
    Message{3380, L"Field '|' already exists in table '^'."},
    Message{3420, L"Object invalid or no longer set."},
    Message{3421, L"Data type conversion error."},
    Message{3464, L"Data type mismatch in criteria expression."},
};

}  // namespace

void raise(int number, const std::wstring& first, const std::wstring& second) {
    const auto found = std::find_if(kMessages.begin(), kMessages.end(),
                                    [&](const Message& m) { return m.number == number; });
    if (found == kMessages.end()) {
        throw DaoError{number, L"Reserved error (-" + std::to_wstring(number) +
                                   L"); there is no message for this error."};
    }
    std::wstring text;
    for (const wchar_t* c = found->text; *c != L'\0'; ++c) {
        if (*c == L'|') {
            text += first;
        } else if (*c == L'^') {
            text += second;
        } else {
            text += *c;
        }
    }
    throw DaoError{number, text};
}

}  // namespace standin::dao
