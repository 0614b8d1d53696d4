' CallByName uses a member whose name is only known at run time.
'> 1 text
'> 0
Sub main()
    Dim c As New Collection, d As Object
    CallByName c, "Add", vbMethod, "text"
    Debug.Print CallByName(c, "Count", vbGet) & " " & CallByName(c, "Item", vbGet, 1)
    Set d = CreateObject("Scripting.Dictionary")
    CallByName d, "CompareMode", vbLet, 0
    Debug.Print d.CompareMode & ""
End Sub
