' Chooses every contacts folder that Outlook shows, in all its stores, as the client's folder dialog would:
' the filler then reads them all. Works with the real Outlook as well.
'   cscript //nologo choose-folders.vbs
Option Explicit

Const ContactItems = 2
Const MostFolders = 16
Const Selection = "HKCU\Software\Norvane\7316\Popup\zelbar00folder\"

Dim shell, session, chosen, i
Set shell = CreateObject("WScript.Shell")
Set session = CreateObject("Outlook.Application").GetNamespace("MAPI")
chosen = 0
For i = 1 To session.Folders.Count
    Choose session.Folders.Item(i), session.Folders.Item(i).Name
Next
WScript.Echo chosen & " folders chosen"
If chosen = 0 Then WScript.Quit 1
WScript.Quit 0

' Chooses the contacts folders of one tree.
Sub Choose(folder, path)
    Dim k, children, child
    If folder.DefaultItemType = ContactItems And chosen < MostFolders Then
        chosen = chosen + 1
        shell.RegWrite Selection & "entryId" & chosen, folder.EntryID, "REG_SZ"
        shell.RegWrite Selection & "storeId" & chosen, folder.StoreID, "REG_SZ"
        shell.RegWrite Selection & "selectId" & chosen, "-1", "REG_SZ"
        WScript.Echo "  " & path
    End If
    Set children = folder.Folders
    For k = 1 To children.Count
        Set child = children.Item(k)
        Choose child, path & "\" & child.Name
    Next
End Sub
