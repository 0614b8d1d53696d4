' A record is written field by field; a text in it has its length in front.
'> 11
'> 7 abc xy
Type Thing
    id As Integer
    name As String
    mark As String * 4
End Type

Sub main()
    Dim a As Thing, b As Thing
    a.id = 7: a.name = "abc": a.mark = "xy"
    Open "C:\b" For Binary As #1
    Put #1, , a
    Debug.Print LOF(1) & ""
    Get #1, 1, b
    Debug.Print b.id & " " & b.name & " " & RTrim(b.mark)
End Sub
