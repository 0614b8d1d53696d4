' Numbers are equal when their values are, whatever their types.
'> True True True True True
Sub main()
    Debug.Print (1 = 1#) & " " & (1& = CByte(1)) & " " & (1@ = 1) & " " & (True = -1) & " " & (#1/1/1900# = 2)
End Sub
