' A variable that goes by reference has the type of the parameter.
'? 7:12 ByRef argument type mismatch
Sub change(s As String)
End Sub
Sub main()
    Dim n As Long
    change n
End Sub
