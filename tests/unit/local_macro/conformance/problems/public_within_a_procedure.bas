' Public and Private belong in front of procedures and module variables.
'? 4:5 Invalid attribute in Sub or Function
Sub main()
    Public n As Long
End Sub
