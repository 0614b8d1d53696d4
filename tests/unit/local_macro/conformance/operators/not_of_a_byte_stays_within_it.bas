' Not turns the eight bits of a Byte, the sixteen of an Integer.
'> 254 Byte
'> -2 Integer
Sub main()
    Debug.Print (Not CByte(1)) & " " & TypeName(Not CByte(1))
    Debug.Print (Not 1) & " " & TypeName(Not 1)
End Sub
