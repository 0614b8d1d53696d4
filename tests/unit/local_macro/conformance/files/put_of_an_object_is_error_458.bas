' A Variant that holds an object can't be written.
'! 458 Variable uses an Automation type not supported in Visual Basic
Sub main()
    Dim v As Variant
    Set v = New Collection
    Open "C:\b" For Binary As #1
    Put #1, , v
End Sub
