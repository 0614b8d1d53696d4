' The parameters of the text functions have names.
'> bcd
'> a_b
'> 2
Sub main()
    Debug.Print Mid(String:="abcd", Start:=2)
    Debug.Print Replace(Expression:="a b", Find:=" ", Replace:="_")
    Debug.Print "" & UBound(Split(Delimiter:=";", Expression:="1;2;3"))
End Sub
