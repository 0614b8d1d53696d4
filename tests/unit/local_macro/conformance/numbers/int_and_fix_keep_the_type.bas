' Int and Fix give the type that they are given, so that they don't overflow.
'> Double 3000000000
'> Currency -3
'> Date 1/1/2024
'> Double 2
'> Integer 7
Sub main()
    Debug.Print TypeName(Int(3000000000.7)) & " " & Int(3000000000.7)
    Debug.Print TypeName(Int(-2.5@)) & " " & Int(-2.5@)
    Debug.Print TypeName(Int(#1/1/2024 6:00:00 PM#)) & " " & Int(#1/1/2024 6:00:00 PM#)
    Debug.Print TypeName(Fix("2.7")) & " " & Fix("2.7")
    Debug.Print TypeName(Int(7)) & " " & Int(7)
End Sub
