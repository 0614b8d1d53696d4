' Parameters and functions may carry their type as a character behind the name.
'> a1 String
Function Join2$(s$, n%)
    Join2 = s & n
End Function

Sub main()
    Debug.Print Join2("a", 1) & " " & TypeName(Join2("a", 1))
End Sub
