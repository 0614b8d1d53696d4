' The sign makes an Integer of Byte and Boolean and a Double of a text.
'> Integer -1
'> Integer 1
'> Double -5
'> Date
'> Integer 0
Sub main()
    Debug.Print TypeName(-CByte(1)) & " " & -CByte(1)
    Debug.Print TypeName(-True) & " " & -True
    Debug.Print TypeName(-"5") & " " & -"5"
    Debug.Print TypeName(-#1/1/2020#)
    Debug.Print TypeName(-Empty) & " " & -Empty
End Sub
