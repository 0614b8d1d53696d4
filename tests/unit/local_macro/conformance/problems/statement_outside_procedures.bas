' Statements that run stand in procedures.
'? 3:1 Invalid outside procedure
x = 5
Sub main()
End Sub
