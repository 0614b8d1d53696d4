' Date$ and Time$ have forms of their own.
'> 11-15-2026 String
'> 18:00:00 String
Sub main()
    Debug.Print Date$ & " " & TypeName(Date$)
    Debug.Print Time$ & " " & TypeName(Time$)
End Sub
