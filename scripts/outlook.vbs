' A client of Outlook that knows nothing of the driver. Works with the real Outlook as well.
'   cscript //nologo outlook.vbs choose-folders   chooses every contacts folder that Outlook shows, in all its
'                                                 stores, as the client's folder dialog would: the filler then
'                                                 reads them all
'   cscript //nologo outlook.vbs show             prints the newest journal entry and the newest mail that was sent
' Exit status: 0 all is there, 1 something is missing, 2 a wrong command line, or Outlook does not answer.
Option Explicit

Const Outbox = 4
Const SentMail = 5
Const Journal = 11
Const ContactItems = 2
Const JournalClass = 42
Const MailClass = 43
Const MostFolders = 16
Const Selection = "HKCU\Software\Norvane\7316\Popup\zelbar00folder\"

' Whatever is held of Outlook is local to these, so that nothing is when the script quits: Quit releases nothing.
Dim command
If WScript.Arguments.Count = 1 Then command = WScript.Arguments(0)
Select Case command
    Case "choose-folders"
        WScript.Quit ChooseFolders
    Case "show"
        WScript.Quit ShowNewest
    Case Else
        WScript.Echo "usage: outlook.vbs choose-folders|show"
        WScript.Quit 2
End Select

' Outlook's session, or Nothing after ten seconds, and a line that says why. An Outlook that was just left ends a
' moment later, and answers nobody while it does.
Function OpenSession
    Dim tries, folders, reason, again
    On Error Resume Next
    For tries = 1 To 10
        Err.Clear
        Set OpenSession = CreateObject("Outlook.Application").GetNamespace("MAPI")
        folders = OpenSession.Folders.Count
        If Err.Number = 0 Then Exit Function
        reason = Err.Description
        again = DateAdd("s", 1, Now)
        Do While Now < again
            ' Missing in Wine, which then spends the second in this loop.
            WScript.Sleep 100
        Loop
    Next
    Set OpenSession = Nothing
    WScript.Echo "Outlook does not answer: " & reason
End Function

Function ChooseFolders
    Dim session, chosen, i
    ChooseFolders = 2
    Set session = OpenSession
    If session Is Nothing Then Exit Function
    chosen = 0
    For i = 1 To session.Folders.Count
        Choose session.Folders.Item(i), session.Folders.Item(i).Name, chosen
    Next
    WScript.Echo chosen & " folders chosen"
    ChooseFolders = 0
    If chosen = 0 Then ChooseFolders = 1
End Function

' Chooses the contacts folders of one tree, and counts them.
Sub Choose(folder, path, chosen)
    Dim shell, i, children, child
    If folder.DefaultItemType = ContactItems And chosen < MostFolders Then
        chosen = chosen + 1
        Set shell = CreateObject("WScript.Shell")
        shell.RegWrite Selection & "entryId" & chosen, folder.EntryID, "REG_SZ"
        shell.RegWrite Selection & "storeId" & chosen, folder.StoreID, "REG_SZ"
        shell.RegWrite Selection & "selectId" & chosen, "-1", "REG_SZ"
        WScript.Echo "  " & Printable(path)
    End If
    Set children = folder.Folders
    For i = 1 To children.Count
        Set child = children.Item(i)
        Choose child, path & "\" & child.Name, chosen
    Next
End Sub

Function ShowNewest
    Dim session, entry, mail
    ShowNewest = 2
    Set session = OpenSession
    If session Is Nothing Then Exit Function
    ShowNewest = 0

    Set entry = Newest(session, Journal, JournalClass)
    If entry Is Nothing Then
        WScript.Echo "There is no journal entry."
        ShowNewest = 1
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
    Set mail = Newest(session, SentMail, MailClass)
    If mail Is Nothing Then Set mail = Newest(session, Outbox, MailClass)
    If mail Is Nothing Then
        WScript.Echo "There is no mail that was sent."
        ShowNewest = 1
    Else
        WScript.Echo "Mail"
        Show "To", Recipients(mail)
        Show "Subject", mail.Subject
        Show "Text", mail.Body
    End If
End Function

' The last item of a kind in one of the user's own folders, or Nothing.
Function Newest(session, folder, kind)
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
        WScript.Echo "  " & Left(heading & Space(10), 10) & Printable(Trim(lines(i)))
    Next
    If UBound(lines) < 0 Then WScript.Echo "  " & heading
End Sub

' A text of an address book for the console, to which control characters and marks of the writing direction would
' be commands.
Function Printable(text)
    Dim signs
    Set signs = New RegExp
    signs.Global = True
    signs.Pattern = "[\x00-\x1f\x7f-\x9f\u061c\u200e\u200f\u2028-\u202e\u2066-\u2069]"
    Printable = signs.Replace(text, "?")
End Function
