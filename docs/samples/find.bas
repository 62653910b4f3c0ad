' Visual Basic 6 or VBA (32-bit), late bound. With a reference to "Tessaria contacts driver interfaces" declare
' driver As DataConnector, cursor As ContactRecord and contact As Contact instead, and the calls are early bound.
Option Explicit

Private Const ByNumber As Long = 0

Public Function NameOfCaller(ByVal number As String) As String
    Dim driver As Object, cursor As Object, contact As Object
    Dim kind As Long
    kind = ByNumber
    Set driver = CreateObject("zelbar00.cDataConnector")
    Set cursor = driver.OpenContactRecord()
    Set contact = cursor.FindFirst(kind, number)
    If contact.NotInPIM Then NameOfCaller = "unknown" Else NameOfCaller = contact.FullName
End Function
