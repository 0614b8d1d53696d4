' If takes Null as not true, with Not in front as well.
'> else
'> else
Sub main()
    v = Null
    If v = 1 Then Debug.Print "then" Else Debug.Print "else"
    If Not (v = 1) Then Debug.Print "then" Else Debug.Print "else"
End Sub
