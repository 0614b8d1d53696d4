' ^ gives a Double; a negative exponent divides, anything to the 0 is 1.
'> Double 8
'> 0.125
'> 1
'> 1.4142135623731
'> -8
Sub main()
    Debug.Print TypeName(2 ^ 3) & " " & 2 ^ 3
    Debug.Print "" & 2 ^ -3
    Debug.Print "" & 0 ^ 0
    Debug.Print "" & Round(2 ^ 0.5, 13)
    Debug.Print "" & (-2) ^ 3
End Sub
