' Prints the newest journal entry and the newest mail that was sent, as Outlook holds them: a client of Outlook
' that knows nothing of the driver. Works with the real Outlook as well.
'   cscript //nologo show-outlook.vbs
' Exit status: 0 both are there, 1 one is missing, 2 Outlook does not answer.
Option Explicit

Const Outbox = 4
Const SentMail = 5
Const Journal = 11
Const MailClass = 43
Const JournalClass = 42

Dim session, entry, mail, missing
On Error Resume Next
Set session = CreateObject("Outlook.Application").GetNamespace("MAPI")
If Err.Number <> 0 Then
    WScript.Echo "Outlook does not answer: " & Err.Description
    WScript.Quit 2
End If
On Error GoTo 0
missing = 0

Set entry = Newest(Journal, JournalClass)
If entry Is Nothing Then
    WScript.Echo "There is no journal entry."
    missing = 1
Else
    WScript.Echo "Journal entry"
    Show "Subject", entry.Subject
    Show "Start", entry.Start
    Show "End", entry.End
    Show "Duration", entry.Duration & " min"
    Show "Text", entry.Body
End If
WScript.Echo ""

' What is still on its way lies in the outbox.
Set mail = Newest(SentMail, MailClass)
If mail Is Nothing Then Set mail = Newest(Outbox, MailClass)
If mail Is Nothing Then
    WScript.Echo "There is no mail that was sent."
    missing = 1
Else
    WScript.Echo "Mail"
    Show "To", Recipients(mail)
    Show "Subject", mail.Subject
    Show "Text", mail.Body
End If
WScript.Quit missing

' The last item of a kind in one of the user's own folders, or Nothing.
Function Newest(folder, kind)
    Dim items, item, i
    Set Newest = Nothing
    Set items = session.GetDefaultFolder(folder).Items
    For i = 1 To items.Count
        Set item = items.Item(i)
        If item.Class = kind Then Set Newest = item
    Next
End Function

Function Recipients(mail)
    Dim i
    Recipients = ""
    For i = 1 To mail.Recipients.Count
        If i > 1 Then Recipients = Recipients & ", "
        Recipients = Recipients & mail.Recipients.Item(i).Name
    Next
End Function

' A heading and its text, whose further lines stand below each other. Whatever ends a line ends one here.
Sub Show(ByVal heading, text)
    Dim lines, i
    lines = Split(Replace(Replace(Replace(CStr(text), vbCrLf, vbLf), vbLf & vbCr, vbLf), vbCr, vbLf), vbLf)
    For i = 0 To UBound(lines)
        If i > 0 Then heading = ""
        WScript.Echo "  " & Left(heading & Space(10), 10) & Trim(lines(i))
    Next
    If UBound(lines) < 0 Then WScript.Echo "  " & heading
End Sub
