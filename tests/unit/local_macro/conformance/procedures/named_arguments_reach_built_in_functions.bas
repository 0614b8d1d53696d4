' The functions of the language take their arguments by name as well.
'> b-b
'> 3
Sub main()
    Debug.Print Replace(Expression:="a-a", Find:="a", Replace:="b")
    Debug.Print InStr(String1:="abc", String2:="c", Start:=1) & ""
End Sub
