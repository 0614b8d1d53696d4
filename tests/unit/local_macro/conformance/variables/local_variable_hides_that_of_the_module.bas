' A local variable or parameter hides a module variable of the same name.
'> local
'> given
'> module
Dim name1 As String

Sub Show(name1 As String)
    Debug.Print name1
End Sub

Sub Local1()
    Dim name1 As String
    name1 = "local"
    Debug.Print name1
End Sub

Sub main()
    name1 = "module"
    Local1
    Show "given"
    Debug.Print name1
End Sub
