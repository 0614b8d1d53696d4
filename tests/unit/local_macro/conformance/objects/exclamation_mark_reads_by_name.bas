' "object!name" is the default member with the name as text.
'> 5 6
Sub main()
    Dim d As Object
    Set d = CreateObject("Scripting.Dictionary")
    d!first = 5
    With d
        !second = 6
        Debug.Print !first & " " & d("second")
    End With
End Sub
