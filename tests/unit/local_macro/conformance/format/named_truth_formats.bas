' Zero is No, False or Off, any other number the opposite; capitals in the name don't matter.
'> Yes No True False On Off
Sub main()
    Debug.Print Format(5, "Yes/No") & " " & Format(0, "yes/no") & " " & Format(-1, "True/False") & " " & _
        Format(0, "True/False") & " " & Format(0.1, "On/Off") & " " & Format(False, "On/Off")
End Sub
