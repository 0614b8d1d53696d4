' Rate finds the interest of one period.
'> 0.00770147
Sub main()
    Debug.Print "" & Round(Rate(48, -200, 8000), 8)
End Sub
